#include "engine/presentation/Sprite.h"

#include <utility>

#include "engine/core/LogManager.h"
#include "engine/core/Utility.h"

namespace ot {

Sprite::Sprite(int max_frames) {
  if (max_frames < 0) {
    LogManager::getInstance().writeLog("Sprite::Sprite(): Error! Unable to allocate %d frames.", max_frames);
    return;
  }
  m_max_frame_count = max_frames;
}

int Sprite::addFrame(Frame frame) {
  if (getFrameCount() == m_max_frame_count) return -1;
  m_frame.push_back(std::move(frame));
  return 0;
}

Frame Sprite::getFrame(int frame_number) const {
  if (frame_number < 0 || frame_number >= getFrameCount()) return Frame();
  return m_frame[frame_number];
}

int Sprite::draw(int frame_number, Vector position, char transparency, Transform transform) const {
  return getFrame(frame_number).draw(position, m_color, transparency, transform);
}

std::string Sprite::toString() const {
  // Kept quirk: no blank before "frames"; log readers know the line.
  return m_label + ", " + ot::toString(getFrameCount()) + "frames, " + ot::toString(m_width) + " x " +
         ot::toString(m_height) + ", " + ot::toString(m_color);
}

}  // namespace ot
