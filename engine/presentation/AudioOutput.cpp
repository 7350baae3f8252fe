#include "engine/presentation/AudioOutput.h"

#include <alc.h>

#include <sstream>
#include <string>

#include <SFML/Audio/SoundBuffer.hpp>
#include <SFML/System/Err.hpp>

#include "engine/core/LogManager.h"
#include "engine/platform/Platform.h"

namespace ot {

namespace {

// The name OpenAL Soft gives the driver that plays to nowhere.
const char* const NULL_DEVICE_NAME = "No Output";

// What the libraries said, for whoever looks into a failed device.
void logLines(const std::string& text) {
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    if (line.find_first_not_of(" \t") != std::string::npos)
      LogManager::getInstance().writeLog(LOG_INFO, "\t%s", line.c_str());
  }
}

}  // namespace

AudioOutput& AudioOutput::getInstance() {
  static AudioOutput audio_output;
  return audio_output;
}

// SFML closes its device with its last audio object, after the tables'.
AudioOutput::~AudioOutput() = default;

void AudioOutput::open() {
  if (m_open) return;
  m_open = true;
  LogManager& log = LogManager::getInstance();
  // OpenAL Soft writes its own diagnostics to standard error unless told
  // otherwise. A user's own settings of these variables stay.
  platform::setEnvironmentDefault("ALSOFT_LOGLEVEL", "0");
  // Without hardware only a sound server could play; failing that, the driver
  // that plays to nowhere keeps every call working and playing sounds ending.
  if (!platform::soundHardwarePresent()) platform::setEnvironmentDefault("ALSOFT_DRIVERS", "pulse,null");

  // SFML opens its device with its first audio object; this one keeps it
  // open. The device's complaints, SFML's and the libraries' below it, are
  // held back until it is known whether they matter.
  std::ostringstream sfml_text;
  std::streambuf* p_previous = sf::err().rdbuf(sfml_text.rdbuf());
  std::string library_text =
      platform::captureStandardError([this] { m_p_keeper = std::make_unique<sf::SoundBuffer>(); });
  sf::err().rdbuf(p_previous);

  if (ALCcontext* p_context = alcGetCurrentContext()) {
    ALCdevice* p_device = alcGetContextsDevice(p_context);
    const ALCchar* p_name = alcGetString(p_device, ALC_ALL_DEVICES_SPECIFIER);
    std::string name = p_name ? p_name : "";
    if (name == NULL_DEVICE_NAME) {
      m_silent = true;
      log.writeLog("AudioOutput::open(): No sound device: sounds and music are silent.");
    } else {
      log.writeLog(LOG_INFO, "AudioOutput::open(): Playing on '%s'.", name.c_str());
    }
    logLines(library_text + sfml_text.str());
    return;
  }
  // Departure: with no device open SFML would try again on every load, and the libraries
  // would print each time: from here on Sound and Music only read their files.
  m_silent = true;
  m_can_play = false;
  log.writeLog("AudioOutput::open(): Warning! Cannot open the sound device: sounds and music are silent.");
  logLines(library_text + sfml_text.str());
}

}  // namespace ot
