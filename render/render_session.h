#pragma once

namespace brevan {

// What painting needs of Qt: an application, for its fonts. Where the program has one already, that one is
// used; else the first call makes one that needs no display. A program without windows calls this from
// its main thread before it paints. Throws HostFailure where Qt cannot start, or the fonts that drawings are set in
// are not installed.
void requirePainting();

}  // namespace brevan
