#pragma once

#include <string>
#include <vector>

#include "engine/core/Types.h"
#include "engine/core/Vector.h"
#include "engine/presentation/Frame.h"

namespace ot {

// A fixed-capacity sequence of frames sharing size, colour, slowdown and
// transparency. Sprites are loaded and owned by the ResourceManager and shared
// by every object of a kind; play state lives in each object's Animation.
class Sprite {
 public:
  // Holds up to max_frames; a negative count gives a capacity of 0.
  explicit Sprite(int max_frames);
  Sprite(const Sprite&) = delete;
  Sprite& operator=(const Sprite&) = delete;

  // -1 when full.
  int addFrame(Frame frame);
  // A copy, or an empty frame for a number outside the frames added.
  Frame getFrame(int frame_number) const;
  // Draws one frame in the sprite's colour.
  int draw(int frame_number, Vector position, char transparency, Transform transform) const;

  int getWidth() const { return m_width; }
  void setWidth(int width) { m_width = width; }
  int getHeight() const { return m_height; }
  void setHeight(int height) { m_height = height; }
  int getFrameCount() const { return static_cast<int>(m_frame.size()); }
  int getMaxFrameCount() const { return m_max_frame_count; }
  Color getColor() const { return m_color; }
  void setColor(Color color) { m_color = color; }
  int getSlowdown() const { return m_slowdown; }
  void setSlowdown(int slowdown) { m_slowdown = slowdown; }
  char getTransparency() const { return m_transparency; }
  void setTransparency(char transparency) { m_transparency = transparency; }
  std::string getLabel() const { return m_label; }
  void setLabel(std::string label) { m_label = std::move(label); }

  // "label, Nframes, w x h, Colour".
  std::string toString() const;

 private:
  int m_width = 0;
  int m_height = 0;
  int m_max_frame_count = 0;
  Color m_color = WHITE;
  int m_slowdown = 1;       // game frames per sprite frame
  char m_transparency = 0;  // drawn as see-through; 0 for none
  // Grows as frames are added: a file's claimed count may be far more than it holds.
  std::vector<Frame> m_frame;
  std::string m_label = "[Undefined]";
};

}  // namespace ot
