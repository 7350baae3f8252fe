#pragma once

#include <string>

// The labels that events carry and objects register for, and the engine's
// default file names. Their texts appear in logs and on the wire.

namespace ot {

inline const std::string UNDEFINED_EVENT = "ot-undefined";
inline const std::string STEP_EVENT = "ot-step";
inline const std::string OUT_EVENT = "ot-out";
inline const std::string COLLISION_EVENT = "ot-collision";
inline const std::string KEYBOARD_EVENT = "ot-keyboard";
inline const std::string MOUSE_EVENT = "ot-mouse";
inline const std::string VIEW_EVENT = "ot-view";
inline const std::string PATH_EVENT = "ot-path";

inline const std::string NETWORK_EVENT = "ot-network";
inline const std::string NETWORK_CREATE_EVENT = "ot-network-create";
inline const std::string NETWORK_SYNC_EVENT = "ot-network-sync";
inline const std::string NETWORK_DELETE_EVENT = "ot-network-delete";
inline const std::string NETWORK_GAME_OVER_EVENT = "ot-network-game-over";
inline const std::string KEYBOARD_NETWORK_EVENT = "ot-keyboard-network";
inline const std::string MOUSE_NETWORK_EVENT = "ot-mouse-network";
inline const std::string CUSTOM_NETWORK_EVENT = "ot-custom-network";

inline const std::string CONFIG_FILENAME = "ot-config.txt";
inline const std::string FONT_FILENAME = "ot-font.ttf";
// The system's copy of that font, for programs run away from a game's folder.
inline const std::string SYSTEM_FONT_FILENAME = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf";
inline const std::string LOGFILE_NAME = "ostrel.log";
inline const std::string WINDOW_TITLE_DEFAULT = "Ostrel";
inline const std::string DEFAULT_PORT = "9876";

}  // namespace ot
