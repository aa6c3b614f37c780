#pragma once

namespace tavrel {

/// Silences the beep and keeps its volume, or gives the kept volume back. A beep that is silent
/// already gets the kept volume back when it is to be silenced, too.
void muteVolume(bool mute);

} // namespace tavrel
