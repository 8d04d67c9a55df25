// The pens, brushes and fonts that records of a metafile make, by their numbers.
#pragma once

#include <map>
#include <variant>

#include "platform/pictures/drawing.h"

namespace quillary::platform {

/// A number may also be taken by an object of no consequence for the drawing.
using DrawingObject = std::variant<std::monostate, Pen, Brush, TextFont>;

class DrawingObjects {
 public:
  /// At the lowest number that is free.
  void Add(DrawingObject object) {
    std::uint32_t number = 0;
    while (objects_.count(number) != 0) ++number;
    if (number < kMost) objects_[number] = std::move(object);
  }
  void Set(std::uint32_t number, DrawingObject object) {
    if (objects_.size() < kMost || objects_.count(number) != 0) objects_[number] = std::move(object);
  }
  void Delete(std::uint32_t number) { objects_.erase(number); }
  void Select(std::uint32_t number, DrawingState& state) const {
    const auto found = objects_.find(number);
    if (found == objects_.end()) return;
    if (const auto* pen = std::get_if<Pen>(&found->second)) state.pen = *pen;
    if (const auto* brush = std::get_if<Brush>(&found->second)) state.brush = *brush;
    if (const auto* font = std::get_if<TextFont>(&found->second)) state.font = *font;
  }

 private:
  static constexpr std::size_t kMost = 4096;
  std::map<std::uint32_t, DrawingObject> objects_;
};

inline Pen MakePen(std::uint32_t style, double width, std::uint32_t colour) {
  constexpr std::uint32_t kKind = 15, kNone = 5, kInside = 6;
  const std::uint32_t kind = style & kKind;
  return {kind != kNone, kind != 0 && kind < kNone && kind != kInside, width, colour};
}

inline Brush MakeBrush(std::uint32_t style, std::uint32_t colour) {
  constexpr std::uint32_t kNone = 1;
  return {style != kNone, colour};
}

inline TextFont MakeFont(std::int32_t height, std::int32_t angle, std::uint32_t weight, bool italic,
                         std::string face) {
  constexpr std::uint32_t kBold = 600;
  const double size = height == 0 ? 12 : height < 0 ? -static_cast<double>(height) : height * 0.85;
  return {size, weight >= kBold, italic, angle / 10.0, face.empty() ? "sans-serif" : std::move(face)};
}

}  // namespace quillary::platform
