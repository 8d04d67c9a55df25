#include <optional>

#include "platform/pictures/bitmap.h"
#include "platform/pictures/byte_reader.h"
#include "platform/pictures/drawing_objects.h"
#include "platform/pictures/metafile.h"
#include "text/encodings.h"
#include "text/limits.h"

namespace quillary::platform {
namespace {

enum Function : std::uint32_t {
  kSaveDC = 0x001E,
  kCreatePalette = 0x00F7,
  kSetPolyFillMode = 0x0106,
  kRestoreDC = 0x0127,
  kSelectObject = 0x012D,
  kSetTextAlign = 0x012E,
  kDibCreatePatternBrush = 0x0142,
  kDeleteObject = 0x01F0,
  kCreatePatternBrush = 0x01F9,
  kSetTextColor = 0x0209,
  kSetWindowOrg = 0x020B,
  kSetWindowExt = 0x020C,
  kOffsetWindowOrg = 0x020F,
  kLineTo = 0x0213,
  kMoveTo = 0x0214,
  kCreatePenIndirect = 0x02FA,
  kCreateFontIndirect = 0x02FB,
  kCreateBrushIndirect = 0x02FC,
  kPolygon = 0x0324,
  kPolyline = 0x0325,
  kIntersectClipRect = 0x0416,
  kEllipse = 0x0418,
  kRectangle = 0x041B,
  kSetPixel = 0x041F,
  kTextOut = 0x0521,
  kPolyPolygon = 0x0538,
  kRoundRect = 0x061C,
  kPatBlt = 0x061D,
  kCreateRegion = 0x06FF,
  kArc = 0x0817,
  kPie = 0x081A,
  kChord = 0x0830,
  kDibBitBlt = 0x0940,
  kExtTextOut = 0x0A32,
  kDibStretchBlt = 0x0B41,
  kSetDibToDev = 0x0D33,
  kStretchDib = 0x0F43,
};

constexpr std::uint32_t kPlaceable = 0x9AC6CDD7;

/// The parameters of a record, in words.
struct Record {
  std::uint32_t function = 0;
  ByteReader bytes;

  double Number(std::size_t word) const { return bytes.SignedWord(2 * word); }
  std::uint32_t Word(std::size_t word) const { return bytes.Word(2 * word); }
  std::uint32_t Long(std::size_t word) const { return bytes.Long(2 * word); }
  /// A vertical number in front of a horizontal one.
  Point At(std::size_t word) const { return {Number(word + 1), Number(word)}; }
  std::size_t words() const { return bytes.size() / 2; }
};

/// A bitmap that a record draws, and where.
struct PlacedBitmap {
  std::optional<Image> image;
  Point start, size, source, source_size;
};

std::optional<PlacedBitmap> BitmapOf(const Record& record) {
  PlacedBitmap placed;
  std::size_t source = 0, target = 0, header = 0;
  switch (record.function) {
    case kStretchDib:
      source = 3, target = 7, header = 11;
      break;
    case kDibStretchBlt:
      source = 2, target = 6, header = 10;
      break;
    case kDibBitBlt:
      source = 2, target = 4, header = 8;
      break;
    case kSetDibToDev:
      source = 3, target = 5, header = 9;
      break;
    default:
      return std::nullopt;
  }
  placed.image = DecodeDib(record.bytes.From(2 * header));
  if (!placed.image) return std::nullopt;
  const bool sized = record.function == kStretchDib || record.function == kDibStretchBlt;
  placed.size = record.At(target);
  placed.start = record.At(target + 2);
  placed.source_size = sized ? record.At(source) : placed.size;
  placed.source = record.At(sized ? source + 2 : source);
  return placed;
}

class Player {
 public:
  Player(std::string_view bytes, std::uint32_t width, std::uint32_t height, double& pixels)
      : bytes_(bytes), drawing_(width, height, {0, 0}, {double(width), double(height)}, pixels) {
    drawing_.state.viewport_size = {double(width), double(height)};
    drawing_.state.window_size = drawing_.state.viewport_size;
    if (bytes_.Long(0) != kPlaceable) return;
    start_ = 22;
    drawing_.state.window = {double(bytes_.SignedWord(6)), double(bytes_.SignedWord(8))};
    drawing_.state.window_size = {bytes_.SignedWord(10) - drawing_.state.window.x,
                                  bytes_.SignedWord(12) - drawing_.state.window.y};
  }

  bool IsMetafile() const {
    const std::uint32_t type = bytes_.Word(start_);
    return (type == 1 || type == 2) && bytes_.Word(start_ + 2) == 9;
  }

  Image Play() {
    std::size_t at = start_ + 18;
    for (std::size_t count = 0; at + 6 <= bytes_.size() && count < limits::kMetafileRecords; ++count) {
      const std::size_t length = std::size_t{bytes_.Long(at)} * 2;
      if (length < 6) break;
      const Record record{bytes_.Word(at + 4), ByteReader(bytes_.From(at + 6, length - 6))};
      if (record.function == 0) break;
      Draw(record);
      at += length;
    }
    // What was wrapped is worth more than its drawing.
    if (only_bitmap_ && drawn_ == 1) return std::move(*only_bitmap_);
    return drawing_.Finish();
  }

 private:
  static std::vector<Point> Points(const Record& record, std::size_t word, std::size_t count) {
    std::vector<Point> points;
    for (; count > 0 && word + 1 < record.words(); --count, word += 2) {
      points.push_back({record.Number(word), record.Number(word + 1)});
    }
    return points;
  }

  void DrawPolygons(const Record& record) {
    const std::size_t count = record.Word(0);
    std::vector<std::vector<Point>> shapes;
    std::size_t word = 1 + count;
    for (std::size_t i = 0; i < count && word < record.words(); ++i) {
      const std::size_t points = record.Word(1 + i);
      shapes.push_back(Points(record, word, points));
      word += 2 * points;
    }
    drawing_.Polygons(shapes);
  }

  void DrawText(const Record& record) {
    const bool extended = record.function == kExtTextOut;
    constexpr std::uint32_t kRectangles = 6;
    const std::size_t length = record.Word(extended ? 2 : 0);
    std::size_t start = extended ? 8 : 2;
    if (extended && (record.Word(3) & kRectangles) != 0) start += 8;
    const std::string_view bytes = record.bytes.From(start, length);
    const std::size_t after = start + length + length % 2;
    std::vector<double> advances;
    if (extended) {
      for (std::size_t i = 0; i < length && after + 2 * i + 1 < record.bytes.size(); ++i) {
        advances.push_back(record.bytes.SignedWord(after + 2 * i));
      }
    }
    drawing_.Text(record.At(extended ? 0 : after / 2), ToUtf8(FromWindows1252(bytes)), advances);
  }

  void DrawBitmap(const Record& record) {
    std::optional<PlacedBitmap> placed = BitmapOf(record);
    if (!placed) return;
    const double below = placed->image->height - placed->source.y - placed->source_size.y;
    drawing_.Bitmap(*placed->image, placed->start, placed->size, {placed->source.x, below},
                    placed->source_size);
    only_bitmap_ = std::move(placed->image);
  }

  void CreateObject(const Record& record) {
    switch (record.function) {
      case kCreatePenIndirect:
        return objects_.Add(MakePen(record.Word(0), record.Number(1), record.Long(3)));
      case kCreateBrushIndirect:
        return objects_.Add(MakeBrush(record.Word(0), record.Long(1)));
      case kCreateFontIndirect: {
        std::string face(record.bytes.From(18, 32));
        face.resize(std::min(face.find('\0'), face.size()));
        return objects_.Add(MakeFont(record.bytes.SignedWord(0), record.bytes.SignedWord(4), record.Word(4),
                                     record.bytes.Byte(10) != 0, ToUtf8(FromWindows1252(face))));
      }
      default:
        return objects_.Add({});
    }
  }

  void SetState(const Record& record) {
    DrawingState& state = drawing_.state;
    switch (record.function) {
      case kSetWindowOrg:
        state.window = record.At(0);
        break;
      case kOffsetWindowOrg:
        state.window = {state.window.x + record.Number(1), state.window.y + record.Number(0)};
        break;
      case kSetWindowExt:
        state.window_size = record.At(0);
        break;
      case kSaveDC:
        drawing_.Save();
        break;
      case kRestoreDC:
        drawing_.Restore(record.bytes.SignedWord(0));
        break;
      case kSelectObject:
        objects_.Select(record.Word(0), state);
        break;
      case kDeleteObject:
        objects_.Delete(record.Word(0));
        break;
      case kSetTextColor:
        state.text_colour = record.Long(0);
        break;
      case kSetTextAlign:
        state.text_alignment = record.Word(0);
        break;
      case kSetPolyFillMode:
        state.winding = record.Word(0) == 2;
        break;
      case kMoveTo:
        state.position = record.At(0);
        break;
      case kIntersectClipRect:
        drawing_.ClipTo(record.At(2), record.At(0));
        break;
      case kCreatePenIndirect:
      case kCreateBrushIndirect:
      case kCreateFontIndirect:
      case kCreatePalette:
      case kCreateRegion:
      case kCreatePatternBrush:
      case kDibCreatePatternBrush:
        CreateObject(record);
        break;
      default:
        break;
    }
  }

  void Draw(const Record& record) {
    using Kind = Drawing::ArcKind;
    ++drawn_;
    switch (record.function) {
      case kLineTo:
        return drawing_.Line(record.At(0));
      case kPolygon:
        return drawing_.Polygons({Points(record, 1, record.Word(0))});
      case kPolyline:
        return drawing_.Polyline(Points(record, 1, record.Word(0)));
      case kPolyPolygon:
        return DrawPolygons(record);
      case kRectangle:
        return drawing_.Rectangle(record.At(2), record.At(0));
      case kRoundRect:
        return drawing_.RoundedRectangle(record.At(4), record.At(2), record.At(0));
      case kEllipse:
        return drawing_.Ellipse(record.At(2), record.At(0));
      case kArc:
      case kPie:
      case kChord: {
        const Kind kind = record.function == kArc   ? Kind::Open
                          : record.function == kPie ? Kind::Pie
                                                    : Kind::Chord;
        return drawing_.Arc(record.At(6), record.At(4), record.At(2), record.At(0), kind);
      }
      case kSetPixel:
        return drawing_.Pixel(record.At(2), record.Long(0));
      case kPatBlt: {
        const Point start = record.At(4);
        const Point size = record.At(2);
        constexpr std::uint32_t kBlack = 0x42, kWhite = 0xFF0062;
        const std::uint32_t operation = record.Long(0);
        const std::uint32_t colour = operation == kBlack   ? 0
                                     : operation == kWhite ? 0xFFFFFF
                                                           : drawing_.state.brush.colour;
        return drawing_.Fill(start, {start.x + size.x, start.y + size.y}, colour);
      }
      case kTextOut:
      case kExtTextOut:
        return DrawText(record);
      case kStretchDib:
      case kDibStretchBlt:
      case kDibBitBlt:
      case kSetDibToDev:
        return DrawBitmap(record);
      default:
        --drawn_;
        return SetState(record);
    }
  }

  ByteReader bytes_;
  Drawing drawing_;
  DrawingObjects objects_;
  std::size_t start_ = 0;  // of the header
  std::size_t drawn_ = 0;  // records that draw
  std::optional<Image> only_bitmap_;
};

}  // namespace

std::optional<Image> DrawWmf(std::string_view bytes, std::uint32_t width, std::uint32_t height,
                             double& pixels) {
  Player player(bytes, width, height, pixels);
  if (!player.IsMetafile()) return std::nullopt;
  return player.Play();
}

}  // namespace quillary::platform
