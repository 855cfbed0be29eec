// Objective-C exceptions as C++ ones: the type thrown is always that of id, and a handler for a
// class checks the object's class.
#include "Runtime/Internal.hpp"
#include "Runtime/Runtime.hpp"

#include <cxxabi.h>
#include <unwind.h>

#include <typeinfo>

// These names appear in Clang's generated code.
namespace gnustep::libobjc {

struct __objc_id_type_info_class : std::type_info {
    __objc_id_type_info_class() : std::type_info("id") {}
    __objc_id_type_info_class(const __objc_id_type_info_class&) = delete;
    __objc_id_type_info_class& operator=(const __objc_id_type_info_class&) = delete;
    ~__objc_id_type_info_class() override;
    [[nodiscard]] bool __is_pointer_p() const override { return true; }
    bool __do_catch(const std::type_info* thrown, void** object, unsigned outer) const override;
};

struct __objc_class_type_info : std::type_info {
    explicit __objc_class_type_info(const char* name) : std::type_info(name) {}
    __objc_class_type_info(const __objc_class_type_info&) = delete;
    __objc_class_type_info& operator=(const __objc_class_type_info&) = delete;
    ~__objc_class_type_info() override;
    [[nodiscard]] bool __is_pointer_p() const override { return true; }
    bool __do_catch(const std::type_info* thrown, void** object, unsigned outer) const override;
};

}

extern "C" gnustep::libobjc::__objc_id_type_info_class __objc_id_type_info;
gnustep::libobjc::__objc_id_type_info_class __objc_id_type_info;

namespace gnustep::libobjc {

__objc_id_type_info_class::~__objc_id_type_info_class() = default;
__objc_class_type_info::~__objc_class_type_info() = default;

bool __objc_id_type_info_class::__do_catch(const std::type_info* thrown, void**, unsigned) const {
    return thrown == &__objc_id_type_info;
}

bool __objc_class_type_info::__do_catch(const std::type_info* thrown, void** object,
                                        unsigned) const {
    using namespace paper::rt;
    return thrown == &__objc_id_type_info &&
           isKind(classOf(static_cast<Object*>(*object)), classNamed(__name));
}

}

extern "C" {

_Unwind_Reason_Code __gxx_personality_v0(int, _Unwind_Action, _Unwind_Exception_Class,
                                         _Unwind_Exception*, _Unwind_Context*);

_Unwind_Reason_Code __gnustep_objcxx_personality_v0(int version, _Unwind_Action actions,
                                                    _Unwind_Exception_Class kind,
                                                    _Unwind_Exception* exception,
                                                    _Unwind_Context* context) {
    return __gxx_personality_v0(version, actions, kind, exception, context);
}

void objc_exception_throw(paper::rt::Object* object) {
    using paper::rt::Object;
    auto* const storage = static_cast<Object**>(abi::__cxa_allocate_exception(sizeof(Object*)));
    *storage = objc_retain(object);
    abi::__cxa_throw(storage, &__objc_id_type_info,
                     [](void* thrown) { objc_release(*static_cast<Object**>(thrown)); });
}
}
