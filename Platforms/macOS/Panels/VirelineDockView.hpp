/// Shows a dock's scene, with one view per node, and exposes its tiles to assistive technology.
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

/// Redraws everything, even if the scene has not changed.
- (void)presentAgain;

/// The tile's current description for assistive technology; nullopt if the tile is gone.
- (std::optional<vireline::AccessibleTile>)tile:(std::uint32_t)identifier;
- (void)pressTile:(std::uint32_t)identifier;
- (void)showMenuOfTile:(std::uint32_t)identifier;

@end
