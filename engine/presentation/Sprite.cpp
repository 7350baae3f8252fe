#include "engine/presentation/Sprite.h"

#include <new>
#include <utility>

#include "engine/core/LogManager.h"
#include "engine/core/Utility.h"

namespace ot {

Sprite::Sprite(int max_frames) {
  m_frame = max_frames >= 0 ? new (std::nothrow) Frame[max_frames] : nullptr;
  if (!m_frame) {
    LogManager::getInstance().writeLog("Sprite::Sprite(): Error! Unable to allocate %d frames.", max_frames);
    m_max_frame_count = 0;
    return;
  }
  m_max_frame_count = max_frames;
}

Sprite::~Sprite() { delete[] m_frame; }

int Sprite::addFrame(Frame frame) {
  if (m_frame_count == m_max_frame_count) return -1;
  m_frame[m_frame_count++] = std::move(frame);
  return 0;
}

Frame Sprite::getFrame(int frame_number) const {
  if (frame_number < 0 || frame_number >= m_frame_count) return Frame();
  return m_frame[frame_number];
}

int Sprite::draw(int frame_number, Vector position, char transparency, Transform transform) const {
  return getFrame(frame_number).draw(position, m_color, transparency, transform);
}

std::string Sprite::toString() const {
  // Kept quirk: no blank before "frames"; log readers know the line.
  return m_label + ", " + ot::toString(m_frame_count) + "frames, " + ot::toString(m_width) + " x " +
         ot::toString(m_height) + ", " + ot::toString(m_color);
}

}  // namespace ot
