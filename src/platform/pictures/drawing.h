// What the records of a metafile draw, on an image. The pens, brushes and coordinates of the
// two kinds of metafile are the same; their records are read elsewhere.
#pragma once

#include <cairo/cairo.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/pictures/image.h"

namespace quillary::platform {

struct Point {
  double x = 0;
  double y = 0;
};

struct Pen {
  bool visible = true;
  bool dashed = false;
  double width = 0;          // in logical units; 0 is as thin as can be
  std::uint32_t colour = 0;  // blue, green and red from the top, as metafiles have it
};

struct Brush {
  bool visible = true;
  std::uint32_t colour = 0xFFFFFF;
};

struct TextFont {
  double height = 12;  // in logical units
  bool bold = false;
  bool italic = false;
  double angle = 0;  // in degrees, against the clock
  std::string face = "sans-serif";
};

/// What can be saved and restored.
struct DrawingState {
  Pen pen;
  Brush brush{true, 0xFFFFFF};
  TextFont font;
  std::uint32_t text_colour = 0;
  std::uint32_t text_alignment = 0;
  bool winding = false;
  Point position;
  // From logical to device units: (x - window) * scale + viewport.
  Point window;
  Point window_size{1, 1};
  Point viewport;
  Point viewport_size{1, 1};
  cairo_matrix_t world{1, 0, 0, 1, 0, 0};
};

class Drawing {
 public:
  /// On white. The frame is what the image shows, in device units. `pixels` is how many may be
  /// painted over each other: it falls with each shape, and at 0 the rest is passed over. Throws
  /// LimitReached (pictures).
  Drawing(std::uint32_t width, std::uint32_t height, Point frame_start, Point frame_size, double& pixels);

  DrawingState state;

  void Save();
  /// Back to the state that was saved last or, for a positive number, to that one counted from 1.
  void Restore(std::int32_t which);

  /// A closed shape, or the shapes of several, with brush and pen.
  void Polygons(const std::vector<std::vector<Point>>& shapes);
  void Polyline(const std::vector<Point>& points);
  /// Curves, each with three points after the start.
  void Beziers(const std::vector<Point>& points);
  void Rectangle(Point start, Point end);
  void RoundedRectangle(Point start, Point end, Point corner);
  void Ellipse(Point start, Point end);
  enum class ArcKind { Open, Pie, Chord };
  /// The part of an ellipse between two directions from its middle, against the clock.
  void Arc(Point start, Point end, Point from, Point to, ArcKind kind);
  void Line(Point to);
  void Pixel(Point at, std::uint32_t colour);
  void Fill(Point start, Point end, std::uint32_t colour);
  void Bitmap(const Image& image, Point start, Point size, Point source, Point source_size);
  void Text(Point at, const std::string& utf8, const std::vector<double>& advances);
  void ClipTo(Point start, Point end);

  // Paths that records put together.
  void BeginPath();
  bool InPath() const { return in_path_; }
  void MoveTo(Point to);
  void ClosePath();
  void EndPath() { in_path_ = false; }
  void PaintPath(bool filled, bool stroked);
  void ClipToPath();

  Image Finish();

 private:
  struct Destroy {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  };
  Point Device(Point logical) const;
  double DeviceLength(double logical) const;
  void Trace(const std::vector<Point>& points, bool closed);
  void TraceEllipse(Point start, Point end, double from, double to);
  void Paint(bool filled, bool stroked);
  void StartShape();
  bool Affordable();
  void SetColour(std::uint32_t colour);

  std::uint32_t width_;
  std::uint32_t height_;
  Point frame_start_;
  Point frame_size_;
  std::unique_ptr<cairo_surface_t, Destroy> surface_;
  std::unique_ptr<cairo_t, Destroy> context_;
  std::vector<DrawingState> saved_;
  bool in_path_ = false;
  double& pixels_;
};

}  // namespace quillary::platform
