#pragma once

namespace ot {

// Cuts a socket's byte stream into whole messages, each a block that starts
// with its own length (4 bytes, little-endian, counting themselves), and
// delivers at most one as an EventNetwork DATA through NetworkManager. Call it
// once a step for each socket, or until it returns 0 to drain them all.
// 1 when a message was delivered; 0 when no whole message is there yet (nothing
// is consumed) or the socket is gone; -1 on failure, including a length below
// 4, after which the socket is closed, since its stream can't be followed.
// A peer that closes with a message half sent gets its socket closed too.
int genDataEvents(int sock);

}  // namespace ot
