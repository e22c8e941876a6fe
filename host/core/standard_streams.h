#pragma once

namespace brevan {

// Fills the places of standard streams that the caller closed. Without this the next file opened takes such a place,
// and what is said to people is written into it. Writing to a filled place fails as to a closed one.
void fillClosedStreams();

}  // namespace brevan
