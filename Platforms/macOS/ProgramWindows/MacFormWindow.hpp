/// The settings window: native controls in titled boxes.
#pragma once

#include "Platform/ProgramWindows.hpp"
#include "ProgramWindows/FormRowView.hpp"
#include "ProgramWindows/TitledWindow.hpp"

#import <AppKit/AppKit.h>

#include <memory>
#include <vector>

namespace vireline::macos {

class MacFormWindow final : public FormWindow {
public:
    MacFormWindow(const WindowStyle& style, FormListener& listener,
                  std::shared_ptr<FocusReturn> focus);

    void present(const Form& form) override;
    void makeKeyAndOrderFront() override { window_.makeKeyAndOrderFront(); }
    void close() override { window_.close(); }
    [[nodiscard]] bool isVisible() const override { return window_.isVisible(); }

private:
    struct SectionView {
        NSTextField* _Nonnull title;
        NSBox* _Nonnull box;
        /// The contents of the box.
        VirelineFlippedView* _Nonnull content;
        std::vector<std::unique_ptr<FormRowView>> rows;
        std::vector<NSBox*> separators;
    };

    [[nodiscard]] SectionView makeSection();
    void show(SectionView& view, const FormSection& section);
    void layOut();
    double layOut(SectionView& view, double top);

    FormListener& listener_;
    double width_;
    double leastHeight_;
    TitledWindow window_;
    /// Nil if creating it failed.
    VirelineFlippedView* _Nullable content_ = nil;
    std::vector<SectionView> sections_;
};

}
