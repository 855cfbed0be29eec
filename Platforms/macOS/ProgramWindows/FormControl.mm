#include "ProgramWindows/FormControl.hpp"

#include "Bridge/ActionTarget.hpp"
#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "ProgramWindows/Labels.hpp"
#include "Translation/FormLayout.hpp"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace vireline::macos {
namespace {

using OnChange = std::function<void(FormValue)>;

NSArray<NSString*>* toNSStrings(const std::vector<std::string>& texts) {
    NSMutableArray<NSString*>* const strings = [NSMutableArray array];
    for (const std::string& text : texts)
        [strings addObject:toNSString(text)];
    return strings;
}

NSControlStateValue stateOf(bool isOn) {
    return isOn ? NSControlStateValueOn : NSControlStateValueOff;
}

class RadioButtons final : public FormControl {
public:
    RadioButtons(const RadioGroup& group, const std::string& label, const OnChange& onChange)
        : options_(group.options), view_([[VirelineFlippedView alloc] initWithFrame:NSRect{}]) {
        view_.accessibilityLabel = toNSString(label);
        for (std::size_t index = 0; index < options_.size(); ++index) {
            VirelineActionTarget* const target = [[VirelineActionTarget alloc]
                initWithFunction:[onChange, index] { onChange(FormValue{index}); }];
            // AppKit groups radio buttons with the same action in the same view.
            NSButton* const button = [NSButton radioButtonWithTitle:toNSString(options_.at(index))
                                                             target:target
                                                             action:@selector(act:)];
            const Size size = toSize(button.fittingSize);
            button.frame = toCGRect({0, size_.height, size.width, size.height});
            size_ = {std::max(size_.width, size.width), size_.height + size.height};
            [view_ addSubview:button];
            targets_.push_back(target);
            buttons_.push_back(button);
        }
    }

    [[nodiscard]] NSView* view() const override { return view_; }
    [[nodiscard]] Size size() const override { return size_; }

    bool show(const Value& value) override {
        const auto* const group = std::get_if<RadioGroup>(&value);
        if (group == nullptr || group->options != options_)
            return false;
        for (std::size_t index = 0; index < buttons_.size(); ++index)
            buttons_.at(index).state = stateOf(index == group->selected);
        return true;
    }

private:
    std::vector<std::string> options_;
    VirelineFlippedView* view_;
    std::vector<VirelineActionTarget*> targets_;
    std::vector<NSButton*> buttons_;
    Size size_;
};

class SegmentedControl final : public FormControl {
public:
    SegmentedControl(const Segments& segments, const std::string& label, OnChange onChange)
        : options_(segments.options)
        , target_([[VirelineActionTarget alloc]
              initWithFunction:[this, onChange = std::move(onChange)] {
                  const NSInteger chosen = attemptOr(NSInteger{-1}, "selectedSegment",
                                                     [&] { return control_.selectedSegment; });
                  if (chosen >= 0)
                      onChange(FormValue{static_cast<std::size_t>(chosen)});
              }])
        , control_([NSSegmentedControl segmentedControlWithLabels:toNSStrings(options_)
                                                     trackingMode:NSSegmentSwitchTrackingSelectOne
                                                           target:target_
                                                           action:@selector(act:)]) {
        control_.accessibilityLabel = toNSString(label);
    }

    [[nodiscard]] NSView* view() const override { return control_; }
    [[nodiscard]] Size size() const override { return toSize(control_.fittingSize); }

    bool show(const Value& value) override {
        const auto* const segments = std::get_if<Segments>(&value);
        if (segments == nullptr || segments->options != options_)
            return false;
        control_.selectedSegment = static_cast<NSInteger>(segments->selected);
        return true;
    }

private:
    std::vector<std::string> options_;
    VirelineActionTarget* target_;
    NSSegmentedControl* control_;
};

class Switch final : public FormControl {
public:
    Switch(const std::string& label, OnChange onChange)
        : target_([[VirelineActionTarget alloc] initWithFunction:[this,
                                                                  onChange = std::move(onChange)] {
            attempt("state", [&] { onChange(FormValue{control_.state == NSControlStateValueOn}); });
        }])
        , control_([[NSSwitch alloc] initWithFrame:NSRect{}]) {
        control_.target = target_;
        control_.action = @selector(act:);
        control_.accessibilityLabel = toNSString(label);
    }

    [[nodiscard]] NSView* view() const override { return control_; }
    [[nodiscard]] Size size() const override { return toSize(control_.fittingSize); }

    bool show(const Value& value) override {
        const auto* const toggle = std::get_if<Toggle>(&value);
        if (toggle == nullptr)
            return false;
        control_.state = stateOf(toggle->isOn);
        return true;
    }

private:
    VirelineActionTarget* target_;
    NSSwitch* control_;
};

/// A slider, followed by its value.
class ValueSlider final : public FormControl {
public:
    ValueSlider(const Slider& slider, const std::string& label, OnChange onChange)
        : view_([[VirelineFlippedView alloc] initWithFrame:NSRect{}])
        , target_([[VirelineActionTarget alloc]
              initWithFunction:[this, onChange = std::move(onChange)] {
                  attempt("slider", [&] { moved(onChange); });
              }])
        , control_([NSSlider sliderWithValue:slider.value
                                    minValue:slider.minimum
                                    maxValue:slider.maximum
                                      target:target_
                                      action:@selector(act:)])
        , text_(Labels::make("", valueFont(), NSColor.secondaryLabelColor)) {
        control_.accessibilityLabel = toNSString(label);
        text_.alignment = NSTextAlignmentRight;
        [view_ addSubview:control_];
        [view_ addSubview:text_];
        layOut();
    }

    [[nodiscard]] NSView* view() const override { return view_; }
    [[nodiscard]] Size size() const override { return size_; }

    bool show(const Value& value) override {
        const auto* const slider = std::get_if<Slider>(&value);
        if (slider == nullptr)
            return false;
        control_.minValue = slider->minimum;
        control_.maxValue = slider->maximum;
        value_ = slider->value;
        if (!isHeld_)
            control_.doubleValue = value_;
        text_.stringValue = toNSString(slider->valueText);
        return true;
    }

private:
    static constexpr double sliderWidth = 180;

    static NSFont* valueFont() {
        return [NSFont monospacedDigitSystemFontOfSize:NSFont.smallSystemFontSize
                                                weight:NSFontWeightRegular];
    }

    void layOut() {
        text_.stringValue = @"0";
        const Size slider{sliderWidth, toSize(control_.fittingSize).height};
        const Size text{sliderValueWidth, Labels::fittingSize(text_, sliderValueWidth).height};
        const double height = std::max(slider.height, text.height);
        const std::array sizes{slider, text};
        const auto frames = FormLayout::line({}, height, sizes, FormLayout::gap);
        control_.frame = toCGRect(frames.at(0));
        text_.frame = toCGRect(frames.at(1));
        size_ = {frames.at(1).maxX(), height};
    }

    /// While the user is dragging the slider, the new settings must not move it. When it is
    /// released, or moved by assistive technology, it snaps to the nearest step.
    void moved(const OnChange& onChange) {
        const NSEventType type = NSApplication.sharedApplication.currentEvent.type;
        const bool isDragged =
            type == NSEventTypeLeftMouseDown || type == NSEventTypeLeftMouseDragged;
        isHeld_ = isDragged && (NSEvent.pressedMouseButtons & 1) != 0;
        onChange(FormValue{control_.doubleValue});
        if (!isHeld_)
            control_.doubleValue = value_;
    }

    VirelineFlippedView* view_;
    VirelineActionTarget* target_;
    NSSlider* control_;
    NSTextField* text_;
    Size size_;
    /// The value in the settings.
    double value_ = 0;
    bool isHeld_ = false;
};

}

std::unique_ptr<FormControl> FormControl::make(const Value& value, const std::string& label,
                                               OnChange onChange) {
    std::unique_ptr<FormControl> made;
    if (const auto* const group = std::get_if<RadioGroup>(&value))
        made = std::make_unique<RadioButtons>(*group, label, onChange);
    else if (const auto* const segments = std::get_if<Segments>(&value))
        made = std::make_unique<SegmentedControl>(*segments, label, std::move(onChange));
    else if (const auto* const slider = std::get_if<Slider>(&value))
        made = std::make_unique<ValueSlider>(*slider, label, std::move(onChange));
    else
        made = std::make_unique<Switch>(label, std::move(onChange));
    static_cast<void>(made->show(value));
    return made;
}

}
