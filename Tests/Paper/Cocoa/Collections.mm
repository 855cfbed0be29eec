// Arrays and dictionaries.
#include "Cocoa/Extensions.hpp"

#include <algorithm>

namespace {

/// Returns all items at once, since they are contiguous.
NSUInteger enumerate(std::vector<id>& items, unsigned long& changes,
                     NSFastEnumerationState* state) {
    if (state->state != 0)
        return 0;
    state->state = 1;
    state->itemsPtr =
        reinterpret_cast<id __unsafe_unretained*>(reinterpret_cast<void*>(items.data()));
    state->mutationsPtr = &changes;
    return items.size();
}

void refuseNil(id object) {
    if (object == nil)
        [NSException paperRaise:@"NSInvalidArgumentException" reason:@"object cannot be nil"];
}

}

// Documented: an index out of range and a nil object raise.
@implementation NSArray {
@public
    std::vector<id> _items;
    unsigned long _changes;
}

+ (instancetype)array {
    return [[self alloc] init];
}

+ (instancetype)arrayWithObjects:(const id[])objects count:(NSUInteger)count {
    NSArray* const array = [[self alloc] init];
    for (NSUInteger index = 0; index < count; ++index) {
        refuseNil(objects[index]);
        array->_items.push_back(objects[index]);
    }
    return array;
}

- (NSUInteger)count {
    return _items.size();
}

- (id)firstObject {
    return _items.empty() ? nil : _items.front();
}

- (id)objectAtIndexedSubscript:(NSUInteger)index {
    if (index >= _items.size())
        [NSException paperRaise:@"NSRangeException" reason:@"index beyond bounds"];
    return _items[index];
}

- (BOOL)isEqualToArray:(NSArray*)other {
    return std::ranges::equal(_items, other->_items,
                              [](id one, id another) { return [one isEqual:another]; });
}

- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:NSArray.class] && [self isEqualToArray:other];
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    NSArray* const copy = [[NSArray alloc] init];
    copy->_items = _items;
    return copy;
}

- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)count {
    static_cast<void>(buffer);
    static_cast<void>(count);
    return enumerate(_items, _changes, state);
}

@end

// Documented: what changes while it is enumerated raises; here the process ends.
@implementation NSMutableArray

- (void)addObject:(id)object {
    refuseNil(object);
    ++_changes;
    _items.push_back(object);
}

@end

// Documented: keys are copied; a nil key or value raises. Belief: the program does not depend on
// the enumeration order; here it is that of the literal.
@implementation NSDictionary {
    std::vector<id> _keys;
    std::vector<id> _values;
    unsigned long _changes;
}

+ (instancetype)dictionaryWithObjects:(const id[])objects
                              forKeys:(const id<NSCopying>[])keys
                                count:(NSUInteger)count {
    NSDictionary* const dictionary = [[self alloc] init];
    for (NSUInteger index = 0; index < count; ++index) {
        refuseNil(objects[index]);
        refuseNil(keys[index]);
        dictionary->_keys.push_back([keys[index] copyWithZone:nullptr]);
        dictionary->_values.push_back(objects[index]);
    }
    return dictionary;
}

- (id)objectForKeyedSubscript:(id)key {
    const auto found =
        std::ranges::find_if(_keys, [&](id candidate) { return [candidate isEqual:key]; });
    return found == _keys.end() ? nil : _values[static_cast<std::size_t>(found - _keys.begin())];
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)count {
    static_cast<void>(buffer);
    static_cast<void>(count);
    return enumerate(_keys, _changes, state);
}

@end
