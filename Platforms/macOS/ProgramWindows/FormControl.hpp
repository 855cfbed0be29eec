/// A native control of the settings form.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Presentation/Form.hpp"

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>

namespace vireline::macos {

class FormControl : private NonCopyable {
public:
    using Value = decltype(FormRow::control);

    virtual ~FormControl() = default;

    /// Creates a radio group, a segmented control, a switch or a slider, depending on the type of
    /// `value`. `label` is its name for assistive technology.
    [[nodiscard]] static std::unique_ptr<FormControl>
    make(const Value& value, const std::string& label, std::function<void(FormValue)> onChange);

    [[nodiscard]] virtual NSView* _Nonnull view() const = 0;
    [[nodiscard]] virtual Size size() const = 0;

    /// Shows the value. Returns false if the value needs a different control.
    [[nodiscard]] virtual bool show(const Value& value) = 0;
};

}
