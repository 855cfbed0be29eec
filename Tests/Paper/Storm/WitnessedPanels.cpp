#include "Storm/WitnessedPanels.hpp"

#include "Foundation/NonCopyable.hpp"

#include <utility>

namespace vireline::storm {
namespace {

class Witnessed final : public PanelWindow, private NonCopyable {
public:
    Witnessed(std::unique_ptr<PanelWindow> window, std::uint32_t display, const Rect& frame,
              std::vector<const ToldWindow*>& all)
        : window_(std::move(window)), all_(all) {
        told_.display = display;
        told_.frame = frame;
        all_.push_back(&told_);
    }
    ~Witnessed() override { std::erase(all_, &told_); }

    void setOverhang(const Overhang& overhang) override {
        nextOverhang_ = overhang;
        window_->setOverhang(overhang);
    }
    void setFrame(const Rect& frame, bool animate) override {
        told_.frame = frame;
        told_.overhang = nextOverhang_;
        window_->setFrame(frame, animate);
    }
    void setHostedFrame(const Rect& frame) override {
        told_.hosted = frame;
        window_->setHostedFrame(frame);
    }
    void present(const Scene& scene) override {
        told_.scene = scene;
        window_->present(scene);
    }
    void requestFrame() override { window_->requestFrame(); }
    void watchForCancel(bool watches) override { window_->watchForCancel(watches); }
    void checkPress() override { window_->checkPress(); }
    void orderFrontRegardless() override {
        told_.isShown = true;
        window_->orderFrontRegardless();
    }
    void orderOut() override {
        told_.isShown = false;
        window_->orderOut();
    }
    void popUpMenu(const Menu& menu, const MenuPlace& place,
                   std::function<void()> onClose) override {
        window_->popUpMenu(menu, place, std::move(onClose));
    }

private:
    std::unique_ptr<PanelWindow> window_;
    std::vector<const ToldWindow*>& all_;
    ToldWindow told_;
    Overhang nextOverhang_;
};

}

std::unique_ptr<PanelWindow> WitnessedPanels::makePanel(std::uint32_t displayID, const Rect& frame,
                                                        PanelWindowListener& listener) {
    return std::make_unique<Witnessed>(port_.makePanel(displayID, frame, listener), displayID,
                                       frame, windows_);
}

}
