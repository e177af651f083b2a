#pragma once

namespace kavrin {

class CNodeGleis;

// Whether a point object (contact, signal) at `position` stands beyond the end of its track.
// A track whose length is not known gives no limit. Lengths computed from the newer track
// format carry rounding, so there a position within the precision of the file's numbers
// (7 significant digits) still counts as at the end; lengths read from the file are exact.
bool IsBeyondTrackEnd(const CNodeGleis& track, double position);

} // namespace kavrin
