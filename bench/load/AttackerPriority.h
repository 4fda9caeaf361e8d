#pragma once

namespace orbelan::load {

// Lowers the calling thread to the least priority. On a machine shared with
// the server and the well-behaved client, an attacker then yields the
// processor as if it ran on a machine of its own; the server still gets every
// request it can send.
void runAsBackground();

} // namespace orbelan::load
