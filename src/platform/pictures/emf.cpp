#include <bit>
#include <cmath>
#include <optional>

#include "platform/pictures/bitmap.h"
#include "platform/pictures/byte_reader.h"
#include "platform/pictures/drawing_objects.h"
#include "platform/pictures/metafile.h"
#include "text/encodings.h"
#include "text/limits.h"

namespace quillary::platform {
namespace {

enum Type : std::uint32_t {
  kHeader = 1,
  kPolyBezier = 2,
  kPolygon = 3,
  kPolyline = 4,
  kPolyBezierTo = 5,
  kPolylineTo = 6,
  kPolyPolyline = 7,
  kPolyPolygon = 8,
  kSetWindowExt = 9,
  kSetWindowOrg = 10,
  kSetViewportExt = 11,
  kSetViewportOrg = 12,
  kEndOfFile = 14,
  kSetPixel = 15,
  kSetMapMode = 17,
  kSetPolyFillMode = 19,
  kSetTextAlign = 22,
  kSetTextColor = 24,
  kMoveTo = 27,
  kIntersectClipRect = 30,
  kSaveDC = 33,
  kRestoreDC = 34,
  kSetWorldTransform = 35,
  kModifyWorldTransform = 36,
  kSelectObject = 37,
  kCreatePen = 38,
  kCreateBrush = 39,
  kDeleteObject = 40,
  kEllipse = 42,
  kRectangle = 43,
  kRoundRect = 44,
  kArc = 45,
  kChord = 46,
  kPie = 47,
  kLineTo = 54,
  kBeginPath = 59,
  kEndPath = 60,
  kCloseFigure = 61,
  kFillPath = 62,
  kStrokeAndFillPath = 63,
  kStrokePath = 64,
  kSelectClipPath = 67,
  kAbortPath = 68,
  kBitBlt = 76,
  kStretchBlt = 77,
  kSetDibToDevice = 80,
  kStretchDib = 81,
  kCreateFont = 82,
  kExtTextOutA = 83,
  kExtTextOutW = 84,
  kPolyBezier16 = 85,
  kPolyPolygon16 = 91,
  kExtCreatePen = 95,
};

constexpr std::uint32_t kFirst16 = kPolyBezier16;
constexpr std::uint32_t kStock = 0x80000000;

class Player {
 public:
  Player(std::string_view bytes, std::uint32_t width, std::uint32_t height, double& pixels)
      : bytes_(bytes), drawing_(width, height, FrameStart(bytes_), FrameSize(bytes_), pixels) {}

  bool IsMetafile() const { return bytes_.Long(0) == kHeader && bytes_.From(40, 4) == " EMF"; }

  Image Play() {
    std::size_t at = 0;
    for (std::size_t count = 0; at + 8 <= bytes_.size() && count < limits::kMetafileRecords; ++count) {
      const std::size_t length = bytes_.Long(at + 4);
      const std::uint32_t type = bytes_.Long(at);
      if (length < 8 || type == kEndOfFile) break;
      Draw(type, ByteReader(bytes_.From(at, length)));
      at += length;
    }
    // What was wrapped is worth more than its drawing.
    if (only_bitmap_ && drawn_ == 1) return std::move(*only_bitmap_);
    return drawing_.Finish();
  }

 private:
  // The frame is in hundredths of millimetres, the device's size in pixels and millimetres.
  static double PixelsPerUnit(const ByteReader& bytes, std::size_t axis) {
    const double millimetres = bytes.Long(80 + axis);
    return millimetres == 0 ? 1 : bytes.Long(72 + axis) / millimetres / 100;
  }
  static Point FrameStart(const ByteReader& bytes) {
    return {bytes.SignedLong(24) * PixelsPerUnit(bytes, 0), bytes.SignedLong(28) * PixelsPerUnit(bytes, 4)};
  }
  static Point FrameSize(const ByteReader& bytes) {
    const Point start = FrameStart(bytes);
    return {bytes.SignedLong(32) * PixelsPerUnit(bytes, 0) - start.x,
            bytes.SignedLong(36) * PixelsPerUnit(bytes, 4) - start.y};
  }

  static Point At(const ByteReader& record, std::size_t at) {
    return {double(record.SignedLong(at)), double(record.SignedLong(at + 4))};
  }

  static std::vector<Point> Points(const ByteReader& record, std::size_t at, std::size_t count, bool small) {
    std::vector<Point> points;
    for (; count > 0 && at < record.size(); --count, at += small ? 4 : 8) {
      points.push_back(small ? Point{double(record.SignedWord(at)), double(record.SignedWord(at + 2))}
                             : At(record, at));
    }
    return points;
  }

  void DrawShapes(const ByteReader& record, bool small, bool closed) {
    const std::size_t count = record.Long(24);
    std::vector<std::vector<Point>> shapes;
    std::size_t at = 32 + 4 * count;
    for (std::size_t i = 0; i < count && at < record.size(); ++i) {
      const std::size_t points = record.Long(32 + 4 * i);
      shapes.push_back(Points(record, at, points, small));
      at += points * (small ? 4 : 8);
    }
    if (closed) return drawing_.Polygons(shapes);
    for (const std::vector<Point>& shape : shapes) drawing_.Polyline(shape);
  }

  // The records of points, which come with numbers of 32 and of 16 bits.
  void DrawPoints(std::uint32_t type, const ByteReader& record, bool small) {
    if (type == kPolyPolyline || type == kPolyPolygon) return DrawShapes(record, small, type == kPolyPolygon);
    std::vector<Point> points = Points(record, 28, record.Long(24), small);
    const bool goes_on = type == kPolyBezierTo || type == kPolylineTo;
    if (goes_on && type == kPolylineTo) {
      for (const Point& point : points) drawing_.Line(point);
      return;
    }
    if (goes_on) points.insert(points.begin(), drawing_.state.position);
    if (type == kPolyBezier || type == kPolyBezierTo) return drawing_.Beziers(points);
    if (type == kPolygon) return drawing_.Polygons({points});
    drawing_.Polyline(points);
  }

  void DrawText(const ByteReader& record, bool wide) {
    const std::size_t length = std::min<std::size_t>(record.Long(44), record.size());
    const std::size_t start = record.Long(48);
    quillary::Text text;
    if (wide) {
      for (std::size_t i = 0; i < length; ++i) text += static_cast<char16_t>(record.Word(start + 2 * i));
    } else {
      text = FromWindows1252(record.From(start, length));
    }
    std::vector<double> advances;
    const std::size_t distances = record.Long(72);
    for (std::size_t i = 0; distances > 0 && i < length && distances + 4 * i + 3 < record.size(); ++i) {
      advances.push_back(record.SignedLong(distances + 4 * i));
    }
    drawing_.Text(At(record, 36), ToUtf8(text), advances);
  }

  struct BitmapPlace {
    std::size_t header;  // where the record says where the header is
    Point start, size, source, source_size;
  };

  static BitmapPlace PlaceOf(std::uint32_t type, const ByteReader& record) {
    BitmapPlace place{48, At(record, 24), {}, {}, {}};
    if (type == kBitBlt || type == kStretchBlt) {
      place.header = 84;
      place.size = At(record, 32);
      place.source = At(record, 44);
      place.source_size = type == kStretchBlt ? At(record, 100) : place.size;
    } else {
      place.source = At(record, 32);
      place.source_size = At(record, 40);
      place.size = type == kStretchDib ? At(record, 72) : place.source_size;
    }
    return place;
  }

  void DrawBitmap(std::uint32_t type, const ByteReader& record) {
    BitmapPlace place = PlaceOf(type, record);
    const std::size_t header = record.Long(place.header);
    if (header == 0) {
      constexpr std::uint32_t kBlack = 0x42, kWhite = 0xFF0062;
      const std::uint32_t operation = record.Long(40);
      const std::uint32_t colour = operation == kBlack   ? 0
                                   : operation == kWhite ? 0xFFFFFF
                                                         : drawing_.state.brush.colour;
      if (operation != kBlack && operation != kWhite && !drawing_.state.brush.visible) return;
      return drawing_.Fill(place.start, {place.start.x + place.size.x, place.start.y + place.size.y}, colour);
    }
    std::optional<Image> image =
        DecodeDib(record.From(header, record.Long(place.header + 4)),
                  record.From(record.Long(place.header + 8), record.Long(place.header + 12)));
    if (!image) return;
    if (type == kStretchDib || type == kSetDibToDevice) {
      place.source.y = image->height - place.source.y - place.source_size.y;
    }
    drawing_.Bitmap(*image, place.start, place.size, place.source, place.source_size);
    only_bitmap_ = std::move(image);
  }

  static cairo_matrix_t Matrix(const ByteReader& record) {
    const auto number = [&](std::size_t index) {
      const float value = std::bit_cast<float>(record.Long(8 + 4 * index));
      return std::isfinite(value) ? double{value} : 0.0;
    };
    return {number(0), number(1), number(2), number(3), number(4), number(5)};
  }

  void ModifyWorld(const ByteReader& record) {
    constexpr std::uint32_t kIdentity = 1, kBefore = 2, kAfter = 3;
    const cairo_matrix_t matrix = Matrix(record);
    cairo_matrix_t& world = drawing_.state.world;
    const cairo_matrix_t old = world;
    switch (record.Long(32)) {
      case kIdentity:
        cairo_matrix_init_identity(&world);
        break;
      case kBefore:
        cairo_matrix_multiply(&world, &matrix, &old);
        break;
      case kAfter:
        cairo_matrix_multiply(&world, &old, &matrix);
        break;
      default:
        world = matrix;
        break;
    }
  }

  // Modes of fixed measures count upwards.
  void SetMapMode(std::uint32_t mode) {
    constexpr double kMillimetres[] = {0, 0, 0.1, 0.01, 0.254, 0.0254, 25.4 / 1440};
    DrawingState& state = drawing_.state;
    scales_ = mode == 7 || mode == 8;
    if (mode < 2 || mode > 6) {
      state.window_size = state.viewport_size = {1, 1};
      return;
    }
    const double unit = kMillimetres[mode] * 100;
    state.window_size = {1, 1};
    state.viewport_size = {unit * PixelsPerUnit(bytes_, 0), -unit * PixelsPerUnit(bytes_, 4)};
  }

  void SelectStock(std::uint32_t number) {
    constexpr std::uint32_t kGreys[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0};
    if (number <= 4) drawing_.state.brush = {true, kGreys[number]};
    if (number == 5) drawing_.state.brush.visible = false;
    if (number == 6 || number == 7) drawing_.state.pen = {true, false, 0, number == 6 ? 0xFFFFFFU : 0U};
    if (number == 8) drawing_.state.pen.visible = false;
  }

  void CreateFont(const ByteReader& record) {
    quillary::Text face;
    for (std::size_t at = 40; at < 40 + 64 && record.Word(at) != 0; at += 2)
      face += static_cast<char16_t>(record.Word(at));
    objects_.Set(record.Long(8), MakeFont(record.SignedLong(12), record.SignedLong(20), record.Long(28),
                                          record.Byte(32) != 0, ToUtf8(face)));
  }

  void SetState(std::uint32_t type, const ByteReader& record) {
    DrawingState& state = drawing_.state;
    switch (type) {
      case kSetWindowExt:
        if (scales_) state.window_size = At(record, 8);
        break;
      case kSetWindowOrg:
        state.window = At(record, 8);
        break;
      case kSetViewportExt:
        if (scales_) state.viewport_size = At(record, 8);
        break;
      case kSetViewportOrg:
        state.viewport = At(record, 8);
        break;
      case kSetMapMode:
        SetMapMode(record.Long(8));
        break;
      case kSetPolyFillMode:
        state.winding = record.Long(8) == 2;
        break;
      case kSetTextAlign:
        state.text_alignment = record.Long(8);
        break;
      case kSetTextColor:
        state.text_colour = record.Long(8);
        break;
      case kSaveDC:
        drawing_.Save();
        break;
      case kRestoreDC:
        drawing_.Restore(record.SignedLong(8));
        break;
      case kSetWorldTransform:
        state.world = Matrix(record);
        break;
      case kModifyWorldTransform:
        ModifyWorld(record);
        break;
      case kSelectObject:
        if (record.Long(8) >= kStock) {
          SelectStock(record.Long(8) - kStock);
        } else {
          objects_.Select(record.Long(8), state);
        }
        break;
      case kDeleteObject:
        objects_.Delete(record.Long(8));
        break;
      case kCreatePen:
        objects_.Set(record.Long(8), MakePen(record.Long(12), record.SignedLong(16), record.Long(24)));
        break;
      case kExtCreatePen:
        objects_.Set(record.Long(8), MakePen(record.Long(28), record.Long(32), record.Long(40)));
        break;
      case kCreateBrush:
        objects_.Set(record.Long(8), MakeBrush(record.Long(12), record.Long(16)));
        break;
      case kCreateFont:
        CreateFont(record);
        break;
      default:
        SetPath(type, record);
        break;
    }
  }

  void SetPath(std::uint32_t type, const ByteReader& record) {
    switch (type) {
      case kMoveTo:
        return drawing_.MoveTo(At(record, 8));
      case kBeginPath:
        return drawing_.BeginPath();
      case kEndPath:
      case kAbortPath:
        return drawing_.EndPath();
      case kCloseFigure:
        return drawing_.ClosePath();
      case kSelectClipPath:
        return drawing_.ClipToPath();
      case kIntersectClipRect:
        return drawing_.ClipTo(At(record, 8), At(record, 16));
      default:
        return;
    }
  }

  void Draw(std::uint32_t type, const ByteReader& record) {
    using Kind = Drawing::ArcKind;
    ++drawn_;
    if (type >= kPolyBezier && type <= kPolyPolygon) return DrawPoints(type, record, false);
    if (type >= kFirst16 && type <= kPolyPolygon16)
      return DrawPoints(type - kFirst16 + kPolyBezier, record, true);
    switch (type) {
      case kLineTo:
        return drawing_.Line(At(record, 8));
      case kSetPixel:
        return drawing_.Pixel(At(record, 8), record.Long(16));
      case kEllipse:
        return drawing_.Ellipse(At(record, 8), At(record, 16));
      case kRectangle:
        return drawing_.Rectangle(At(record, 8), At(record, 16));
      case kRoundRect:
        return drawing_.RoundedRectangle(At(record, 8), At(record, 16), At(record, 24));
      case kArc:
      case kChord:
      case kPie: {
        const Kind kind = type == kArc ? Kind::Open : type == kPie ? Kind::Pie : Kind::Chord;
        return drawing_.Arc(At(record, 8), At(record, 16), At(record, 24), At(record, 32), kind);
      }
      case kFillPath:
        return drawing_.PaintPath(true, false);
      case kStrokeAndFillPath:
        return drawing_.PaintPath(true, true);
      case kStrokePath:
        return drawing_.PaintPath(false, true);
      case kBitBlt:
      case kStretchBlt:
      case kSetDibToDevice:
      case kStretchDib:
        return DrawBitmap(type, record);
      case kExtTextOutA:
      case kExtTextOutW:
        return DrawText(record, type == kExtTextOutW);
      default:
        --drawn_;
        return SetState(type, record);
    }
  }

  ByteReader bytes_;
  Drawing drawing_;
  DrawingObjects objects_;
  std::size_t drawn_ = 0;  // records that draw
  bool scales_ = false;    // the mode of coordinates lets the sizes of window and viewport count
  std::optional<Image> only_bitmap_;
};

}  // namespace

std::optional<Image> DrawEmf(std::string_view bytes, std::uint32_t width, std::uint32_t height,
                             double& pixels) {
  Player player(bytes, width, height, pixels);
  if (!player.IsMetafile()) return std::nullopt;
  return player.Play();
}

}  // namespace quillary::platform
