#pragma once

namespace Brisel::Gallery {

/// Thrown where work ends because the user asked for it.
struct Interrupted {};

/// From now on, an interrupt or a request to end is noted instead of ending the process at once, so that drafts can be
/// removed. What was ignored when the program started stays ignored, as nohup wants it.
void noteInterruptions();
bool wasInterrupted();

}  // namespace Brisel::Gallery
