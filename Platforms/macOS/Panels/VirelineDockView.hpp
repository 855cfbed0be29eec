/// Shows a dock's scene, one view a node, and its tiles to assistive technology.
#pragma once

#include "Presentation/Scene.hpp"
#include "Translation/PanelInput.hpp"

#import <AppKit/AppKit.h>

#include <memory>
#include <optional>

@interface VirelineDockView : NSView

- (nonnull instancetype)initWithFrame:(NSRect)frame
                                input:(std::weak_ptr<vireline::macos::PanelInput>)input;

- (void)presentScene:(const vireline::Scene&)scene;

/// Shows everything anew, whatever it shows.
- (void)presentAgain;

/// The tile as assistive technology presents it now; nothing when it is gone.
- (std::optional<vireline::AccessibleTile>)tile:(std::uint32_t)identifier;
- (void)pressTile:(std::uint32_t)identifier;
- (void)showMenuOfTile:(std::uint32_t)identifier;

@end
