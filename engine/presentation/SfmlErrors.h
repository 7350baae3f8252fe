#pragma once

namespace ot {

// SFML reports its own failures (a font it can't read, a device it can't open)
// on its error stream, sf::err(), which is standard error by default.
// Departure: these two
// send that stream into the engine's log instead, a line at a time, so that a
// game's terminal stays clean. The GameManager turns it on once the log is open
// and off again before the log closes.

// From now on each line SFML reports becomes a log line "SFML: <text>".
void logSfmlErrors();
// Puts back the stream that was there before; a line left unfinished is logged first.
void restoreSfmlErrors();

}  // namespace ot
