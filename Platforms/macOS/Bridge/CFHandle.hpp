/// Owns a Core Foundation object.
#pragma once

#import <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace vireline::macos {

/// `Ref` is a pointer type such as CFArrayRef. Takes the result of a Create or Copy function, which
/// may be null.
template <class Ref>
class CFHandle {
public:
    CFHandle() = default;
    explicit CFHandle(Ref owned) : ref_(owned) {}
    CFHandle(CFHandle&& other) noexcept : ref_(std::exchange(other.ref_, nullptr)) {}
    CFHandle& operator=(CFHandle&& other) noexcept {
        std::swap(ref_, other.ref_);
        return *this;
    }
    CFHandle(const CFHandle&) = delete;
    CFHandle& operator=(const CFHandle&) = delete;
    ~CFHandle() {
        if (ref_ != nullptr)
            CFRelease(ref_);
    }

    [[nodiscard]] Ref get() const noexcept { return ref_; }
    [[nodiscard]] explicit operator bool() const noexcept { return ref_ != nullptr; }

private:
    Ref ref_ = nullptr;
};

}
