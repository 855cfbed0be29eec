/// Kinds of finds that are known and not mended yet; each goes with its mend.
#pragma once

namespace vireline::storm::muted {

/// A tile that is moved past apps that are gone from the disk lands elsewhere.
inline constexpr bool movesPastMissingApps = true;
/// A strip that gets one separator more, and not one tile, no longer fits its panel.
inline constexpr bool separators = true;

}
