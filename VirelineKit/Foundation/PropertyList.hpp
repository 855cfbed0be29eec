/// A property list as plain data, independent of the file format.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace vireline {

class PropertyList {
public:
    using Array = std::vector<PropertyList>;
    using Dictionary = std::map<std::string, PropertyList, std::less<>>;
    using Data = std::vector<std::byte>;

    PropertyList() = default;
    explicit PropertyList(bool value) : value_(value) {}
    explicit PropertyList(std::int64_t value) : value_(value) {}
    explicit PropertyList(double value) : value_(value) {}
    explicit PropertyList(const char* value) : value_(std::string{value}) {}
    explicit PropertyList(std::string value) : value_(std::move(value)) {}
    explicit PropertyList(Data value) : value_(std::move(value)) {}
    explicit PropertyList(Array value) : value_(std::move(value)) {}
    explicit PropertyList(Dictionary value) : value_(std::move(value)) {}

    [[nodiscard]] const std::string* string() const noexcept { return get<std::string>(); }
    [[nodiscard]] const Array* array() const noexcept { return get<Array>(); }
    [[nodiscard]] const Dictionary* dictionary() const noexcept { return get<Dictionary>(); }

    /// The value for `key`; null if there is none or this is not a dictionary.
    [[nodiscard]] const PropertyList* find(std::string_view key) const {
        const Dictionary* entries = dictionary();
        if (entries == nullptr)
            return nullptr;
        const auto found = entries->find(key);
        return found == entries->end() ? nullptr : &found->second;
    }

    bool operator==(const PropertyList&) const = default;

private:
    template <class T>
    [[nodiscard]] const T* get() const noexcept {
        return std::get_if<T>(&value_);
    }

    /// `monostate` stands for the types that the program does not use, such as dates.
    std::variant<std::monostate, bool, std::int64_t, double, std::string, Data, Array, Dictionary>
        value_;
};

}
