#include "platform/pictures/drawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillary::platform {
namespace {

constexpr double kThinnest = 1;
constexpr std::size_t kMostSaved = 256;

double Bounded(double value) { return std::isfinite(value) ? std::clamp(value, -1e6, 1e6) : 0; }

bool IsUsable(double scale) { return std::abs(scale) > 1e-4 && std::abs(scale) < 1e4; }

}  // namespace

Drawing::Drawing(std::uint32_t width, std::uint32_t height, Point frame_start, Point frame_size,
                 double& pixels)
    : width_(width), height_(height), frame_start_(frame_start), frame_size_(frame_size), pixels_(pixels) {
  Image::Blank(width, height);  // refuses what is too large
  surface_.reset(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)));
  context_.reset(cairo_create(surface_.get()));
  cairo_set_source_rgb(context_.get(), 1, 1, 1);
  cairo_paint(context_.get());
}

void Drawing::Save() {
  if (saved_.size() == kMostSaved) return;
  saved_.push_back(state);
  cairo_save(context_.get());
}

void Drawing::Restore(std::int32_t which) {
  const auto count = static_cast<std::int32_t>(saved_.size());
  const std::int32_t index = which > 0 ? which - 1 : count + which;
  if (index < 0 || index >= count) return;
  state = saved_[static_cast<std::size_t>(index)];
  for (std::int32_t i = count; i > index; --i) cairo_restore(context_.get());
  saved_.resize(static_cast<std::size_t>(index));
}

Point Drawing::Device(Point logical) const {
  cairo_matrix_transform_point(&state.world, &logical.x, &logical.y);
  const auto mapped = [](double value, double window, double window_size, double viewport,
                         double viewport_size) {
    return (value - window) * viewport_size / (window_size == 0 ? 1 : window_size) + viewport;
  };
  const double x =
      mapped(logical.x, state.window.x, state.window_size.x, state.viewport.x, state.viewport_size.x);
  const double y =
      mapped(logical.y, state.window.y, state.window_size.y, state.viewport.y, state.viewport_size.y);
  return {Bounded((x - frame_start_.x) * width_ / (frame_size_.x == 0 ? 1 : frame_size_.x)),
          Bounded((y - frame_start_.y) * height_ / (frame_size_.y == 0 ? 1 : frame_size_.y))};
}

double Drawing::DeviceLength(double logical) const {
  const Point start = Device({0, 0});
  const Point end = Device({0, logical});
  return std::hypot(end.x - start.x, end.y - start.y);
}

void Drawing::SetColour(std::uint32_t colour) {
  cairo_set_source_rgb(context_.get(), (colour & 255) / 255.0, (colour >> 8 & 255) / 255.0,
                       (colour >> 16 & 255) / 255.0);
}

void Drawing::StartShape() {
  if (!in_path_) cairo_new_path(context_.get());
}

// Every shape is paid for with the pixels that it covers, so that no metafile takes long.
bool Drawing::Affordable() {
  double left = 0, top = 0, right = 0, bottom = 0;
  cairo_path_extents(context_.get(), &left, &top, &right, &bottom);
  const double wide = std::min<double>(right, width_) - std::max(left, 0.0);
  const double high = std::min<double>(bottom, height_) - std::max(top, 0.0);
  pixels_ -= 1000 + std::max(wide, 0.0) * std::max(high, 0.0);
  return pixels_ > 0;
}

void Drawing::Paint(bool filled, bool stroked) {
  if (in_path_) return;
  cairo_t* const context = context_.get();
  if (!Affordable()) return cairo_new_path(context);
  if (filled && state.brush.visible) {
    cairo_set_fill_rule(context, state.winding ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
    SetColour(state.brush.colour);
    cairo_fill_preserve(context);
  }
  if (stroked && state.pen.visible) {
    SetColour(state.pen.colour);
    const double width = std::max(std::min(DeviceLength(state.pen.width), 1000.0), kThinnest);
    cairo_set_line_width(context, width);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    const double dash = 4 * width;
    cairo_set_dash(context, &dash, state.pen.dashed ? 1 : 0, 0);
    cairo_stroke_preserve(context);
  }
  cairo_new_path(context);
}

void Drawing::Trace(const std::vector<Point>& points, bool closed) {
  bool first = true;
  for (const Point& point : points) {
    const Point at = Device(point);
    (first ? cairo_move_to : cairo_line_to)(context_.get(), at.x, at.y);
    first = false;
  }
  if (closed) cairo_close_path(context_.get());
}

void Drawing::Polygons(const std::vector<std::vector<Point>>& shapes) {
  StartShape();
  for (const std::vector<Point>& shape : shapes) Trace(shape, true);
  Paint(true, true);
}

void Drawing::Polyline(const std::vector<Point>& points) {
  StartShape();
  Trace(points, false);
  Paint(false, true);
}

void Drawing::Beziers(const std::vector<Point>& points) {
  if (points.empty()) return;
  StartShape();
  const Point start = Device(points[0]);
  if (in_path_ && cairo_has_current_point(context_.get()) != 0) {
    cairo_line_to(context_.get(), start.x, start.y);
  } else {
    cairo_move_to(context_.get(), start.x, start.y);
  }
  for (std::size_t i = 1; i + 2 < points.size(); i += 3) {
    const Point first = Device(points[i]);
    const Point second = Device(points[i + 1]);
    const Point end = Device(points[i + 2]);
    cairo_curve_to(context_.get(), first.x, first.y, second.x, second.y, end.x, end.y);
  }
  state.position = points.back();
  Paint(false, true);
}

void Drawing::Rectangle(Point start, Point end) {
  Polygons({{start, {end.x, start.y}, end, {start.x, end.y}}});
}

void Drawing::TraceEllipse(Point start, Point end, double from, double to) {
  const Point middle{(start.x + end.x) / 2, (start.y + end.y) / 2};
  const Point radius{(end.x - start.x) / 2, (end.y - start.y) / 2};
  constexpr int kSteps = 72;
  std::vector<Point> points;
  for (int i = 0; i <= kSteps; ++i) {
    const double angle = from + (to - from) * i / kSteps;
    points.push_back({middle.x + radius.x * std::cos(angle), middle.y - radius.y * std::sin(angle)});
  }
  Trace(points, false);
}

void Drawing::Ellipse(Point start, Point end) {
  StartShape();
  TraceEllipse(start, end, 0, 2 * std::numbers::pi);
  cairo_close_path(context_.get());
  Paint(true, true);
}

void Drawing::RoundedRectangle(Point start, Point end, Point corner) {
  const double wide = std::min(std::abs(corner.x), std::abs(end.x - start.x)) / 2;
  const double high = std::min(std::abs(corner.y), std::abs(end.y - start.y)) / 2;
  const double left = std::min(start.x, end.x), right = std::max(start.x, end.x);
  const double top = std::min(start.y, end.y), bottom = std::max(start.y, end.y);
  Polygons({{{left + wide, top},
             {right - wide, top},
             {right, top + high},
             {right, bottom - high},
             {right - wide, bottom},
             {left + wide, bottom},
             {left, bottom - high},
             {left, top + high}}});
}

void Drawing::Arc(Point start, Point end, Point from, Point to, ArcKind kind) {
  const Point middle{(start.x + end.x) / 2, (start.y + end.y) / 2};
  const auto angle = [&](Point towards) { return std::atan2(middle.y - towards.y, towards.x - middle.x); };
  const double first = angle(from);
  double last = angle(to);
  if (last <= first) last += 2 * std::numbers::pi;
  StartShape();
  TraceEllipse(start, end, first, last);
  if (kind == ArcKind::Pie) {
    const Point at = Device(middle);
    cairo_line_to(context_.get(), at.x, at.y);
  }
  if (kind != ArcKind::Open) cairo_close_path(context_.get());
  Paint(kind != ArcKind::Open, true);
}

void Drawing::Line(Point to) {
  if (in_path_) {
    const Point at = Device(to);
    cairo_line_to(context_.get(), at.x, at.y);
  } else {
    Polyline({state.position, to});
  }
  state.position = to;
}

void Drawing::MoveTo(Point to) {
  state.position = to;
  if (!in_path_) return;
  const Point at = Device(to);
  cairo_move_to(context_.get(), at.x, at.y);
}

void Drawing::Pixel(Point at, std::uint32_t colour) {
  const Point device = Device(at);
  cairo_new_path(context_.get());
  cairo_rectangle(context_.get(), device.x, device.y, 1, 1);
  SetColour(colour);
  if (Affordable()) cairo_fill(context_.get());
}

void Drawing::Fill(Point start, Point end, std::uint32_t colour) {
  cairo_new_path(context_.get());
  Trace({start, {end.x, start.y}, end, {start.x, end.y}}, true);
  SetColour(colour);
  if (Affordable()) cairo_fill(context_.get());
}

void Drawing::Bitmap(const Image& image, Point start, Point size, Point source, Point source_size) {
  const Point from = Device(start);
  const Point to = Device({start.x + size.x, start.y + size.y});
  cairo_t* const context = context_.get();
  const Point scale{(to.x - from.x) / source_size.x, (to.y - from.y) / source_size.y};
  // The library loses memory where it cannot turn a scale round, or has failed before.
  if (!IsUsable(scale.x) || !IsUsable(scale.y) || cairo_status(context) != CAIRO_STATUS_SUCCESS) return;
  cairo_new_path(context);
  cairo_rectangle(context, std::min(from.x, to.x), std::min(from.y, to.y), std::abs(to.x - from.x),
                  std::abs(to.y - from.y));
  pixels_ -= static_cast<double>(image.pixels.size());
  if (!Affordable()) return cairo_new_path(context);
  // The library keeps blue first, and all colours multiplied with the opacity.
  std::vector<std::uint8_t> pixels(image.pixels.size());
  for (std::size_t at = 0; at + 3 < pixels.size(); at += 4) {
    const unsigned opacity = image.pixels[at + 3];
    for (std::size_t i = 0; i < 3; ++i) {
      pixels[at + i] = static_cast<std::uint8_t>(image.pixels[at + 2 - i] * opacity / 255);
    }
    pixels[at + 3] = static_cast<std::uint8_t>(opacity);
  }
  const std::unique_ptr<cairo_surface_t, Destroy> surface(
      cairo_image_surface_create_for_data(pixels.data(), CAIRO_FORMAT_ARGB32, static_cast<int>(image.width),
                                          static_cast<int>(image.height), static_cast<int>(image.width) * 4));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
    return cairo_new_path(context);  // too wide
  cairo_save(context);
  cairo_clip(context);
  cairo_translate(context, from.x, from.y);
  cairo_scale(context, scale.x, scale.y);
  cairo_set_source_surface(context, surface.get(), -source.x, -source.y);
  cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
  cairo_paint(context);
  cairo_restore(context);
}

void Drawing::Text(Point at, const std::string& utf8, const std::vector<double>& advances) {
  constexpr std::uint32_t kAtPosition = 1, kRight = 2, kCentre = 6, kBottom = 8, kBaseline = 24;
  cairo_t* const context = context_.get();
  const TextFont& font = state.font;
  const double height = std::clamp(DeviceLength(font.height), 1.0, 1000.0);
  cairo_select_font_face(context, font.face.c_str(),
                         font.italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                         font.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(context, height);
  pixels_ -= static_cast<double>(utf8.size()) * height * height;
  if (pixels_ <= 0) return;
  cairo_text_extents_t extents{};
  cairo_font_extents_t metrics{};
  cairo_text_extents(context, utf8.c_str(), &extents);
  cairo_font_extents(context, &metrics);
  double width = extents.x_advance;
  double logical_width = 0;
  for (const double advance : advances) logical_width += advance;
  if ((state.text_alignment & kAtPosition) != 0) at = state.position;
  const Point start = Device(at);
  const double stated = std::abs(Device({at.x + logical_width, at.y}).x - start.x);
  SetColour(state.text_colour);
  cairo_save(context);
  cairo_translate(context, start.x, start.y);
  cairo_rotate(context, -font.angle * std::numbers::pi / 180);
  // The face at hand is rarely the one that was meant, but the room for the text is.
  if (stated > 0 && width > 0) {
    cairo_scale(context, std::clamp(stated / width, 0.3, 3.0), 1);
    width = std::clamp(stated / width, 0.3, 3.0) == stated / width ? width : stated;
  }
  const std::uint32_t across = state.text_alignment & kCentre;
  const double left = across == kCentre ? -width / 2 : across == kRight ? -width : 0;
  const std::uint32_t along = state.text_alignment & kBaseline;
  const double down = along == kBaseline ? 0 : along == kBottom ? -metrics.descent : metrics.ascent;
  cairo_move_to(context, left, down);
  cairo_show_text(context, utf8.c_str());
  cairo_restore(context);
  cairo_new_path(context);
  if ((state.text_alignment & kAtPosition) != 0) state.position.x += logical_width;
}

void Drawing::ClipTo(Point start, Point end) {
  cairo_new_path(context_.get());
  Trace({start, {end.x, start.y}, end, {start.x, end.y}}, true);
  cairo_clip(context_.get());
}

void Drawing::BeginPath() {
  cairo_new_path(context_.get());
  in_path_ = true;
}

void Drawing::ClosePath() {
  if (in_path_) cairo_close_path(context_.get());
}

void Drawing::PaintPath(bool filled, bool stroked) {
  in_path_ = false;
  Paint(filled, stroked);
}

void Drawing::ClipToPath() {
  in_path_ = false;
  cairo_clip(context_.get());
}

Image Drawing::Finish() {
  cairo_surface_flush(surface_.get());
  Image image = Image::Blank(width_, height_);
  const unsigned char* bytes = cairo_image_surface_get_data(surface_.get());
  const auto row_bytes = static_cast<std::size_t>(cairo_image_surface_get_stride(surface_.get()));
  if (bytes == nullptr) return image;
  for (std::uint32_t y = 0; y < height_; ++y) {
    for (std::uint32_t x = 0; x < width_; ++x) {
      const unsigned char* from = bytes + y * row_bytes + std::size_t{x} * 4;
      std::uint8_t* to = image.At(x, y);
      to[0] = from[2];
      to[1] = from[1];
      to[2] = from[0];
      to[3] = 255;
    }
  }
  return image;
}

}  // namespace quillary::platform
