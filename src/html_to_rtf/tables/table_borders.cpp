#include "html_to_rtf/tables/table_borders.h"

#include <algorithm>

#include "html_to_rtf/inline/backgrounds.h"
#include "html_to_rtf/inline/colours.h"
#include "html_to_rtf/inline/tag_values.h"

namespace quillary::HTMLRTFConverter {
namespace {

/// Something that each edge of a table or a cell has.
template <class Number>
struct Edges {
  Number top{};
  Number right{};
  Number bottom{};
  Number left{};
};

// Takes the number in front of the next "PX" off the value; false if there is none.
bool TakePixels(Text& value, Integer16& pixels) {
  const std::size_t unit = value.find(u"PX");
  if (unit == Text::npos) return false;
  pixels = ToInteger16(TextView(value).substr(0, unit));
  value.erase(0, unit + 2);
  return true;
}

// Up to four widths of "BORDER-WIDTH:"; a single one is that of all edges. Returns false for
// a value without an end, after which nothing else is read.
bool ReadWidths(TextView tag, bool& has_widths, Edges<Integer16&> width) {
  constexpr TextView kName = u"BORDER-WIDTH:";
  const std::int32_t found = FindText(1, tag, kName);
  if (found == 0) return true;
  has_widths = true;
  width.top = width.right = width.bottom = width.left = 0;
  const std::int32_t start = found + static_cast<std::int32_t>(kName.size());
  const std::int32_t end = FirstEnd(tag, start, {u";", u"\"", u" ", u">"});
  if (end == 0) return false;
  Text value(ValueBetween(tag, start, end));
  if (!TakePixels(value, width.top)) return true;
  if (value.size() < 3) {
    width.right = width.bottom = width.left = width.top;
  } else if (TakePixels(value, width.right) && TakePixels(value, width.bottom)) {
    TakePixels(value, width.left);
  }
  return true;
}

// The number of a colour of six digits. The first colour of the list is added again, since
// its place in the list reads as none.
Integer16 EdgeColour(HtmlToRtfState& state, TextView digits) {
  if (FindInList(state.ColourList, digits) == 0) AppendColour(state, digits);
  return ColourNumber(state, digits);
}

// Up to four colours; `edges` gives where they go, once there is one.
template <class Target>
void ReadColours(HtmlToRtfState& state, TextView tag, Target&& edges) {
  const auto read = [&](TextView name, Integer16& (*edge)(const Edges<Integer16&>&)) {
    const std::int32_t found = FindText(1, tag, name);
    if (found == 0) return;
    const Integer16 colour =
        EdgeColour(state, MidView(tag, found + static_cast<std::int32_t>(name.size()), 6));
    edge(edges()) = colour;
  };
  using Colours = const Edges<Integer16&>&;
  read(u"BORDER-TOP-COLOR:#", [](Colours colours) -> Integer16& { return colours.top; });
  read(u"BORDER-LEFT-COLOR:#", [](Colours colours) -> Integer16& { return colours.left; });
  read(u"BORDER-RIGHT-COLOR:#", [](Colours colours) -> Integer16& { return colours.right; });
  read(u"BORDER-BOTTOM-COLOR:#", [](Colours colours) -> Integer16& { return colours.bottom; });
}

void Raise(Integer16& value, const Integer16& least) { value = std::max<std::int16_t>(value, least); }

void AppendEdge(Text& words, TextView edge, const Integer16& width, const Integer16& colour) {
  words += edge;
  if (width < 1) {
    words += u"\\brdrtbl";
    return;
  }
  words.append(u"\\brdrs\\brdrw").append(Decimal(Integer16(width * std::int64_t{10})));
  if (colour > 0) words.append(u"\\brdrcf").append(Decimal(colour));
}

}  // namespace

void ParseTableBorders(Apartment& apartment, TextView tag) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  // What the tag does not name needs no open table.
  if (Holds(tag, u"BORDER-WIDTH:")) {
    TableLevel& level = OpenLevel(state);
    if (!ReadWidths(tag, level.hasBorderStyle,
                    {level.borderTop, level.borderRight, level.borderBottom, level.borderLeft})) {
      return;
    }
  }
  const std::int32_t all = FindText(1, tag, u"BORDER-COLOR:");
  const std::int32_t digits = all > 0 ? FindText(all, tag, u"#") : 0;
  if (digits > 0) {
    const Integer16 colour = EdgeColour(state, MidView(tag, digits + 1, 6));
    TableLevel& level = OpenLevel(state);
    level.colourTop = level.colourRight = level.colourBottom = level.colourLeft = colour;
  }
  ReadColours(state, tag, [&]() -> Edges<Integer16&> {
    TableLevel& level = OpenLevel(state);
    return {level.colourTop, level.colourRight, level.colourBottom, level.colourLeft};
  });
}

Text CellBorders(Apartment& apartment, TextView cell_tag, CellPlace place) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  bool has_widths = false;
  Edges<Integer16> width;
  Edges<Integer16> colour;
  if (!ReadWidths(cell_tag, has_widths, {width.top, width.right, width.bottom, width.left})) return {};
  ReadColours(state, cell_tag, [&]() -> Edges<Integer16&> {
    return {colour.top, colour.right, colour.bottom, colour.left};
  });
  const TableLevel& level = OpenLevel(state);
  if (!has_widths && !level.hasBorderStyle) return {};
  if (level.hasBorderStyle) {
    // An edge of the table raises a thinner one of a cell that stands there.
    const auto raise = [](bool there, Integer16& own_width, const Integer16& table_width,
                          Integer16& own_colour, const Integer16& table_colour) {
      if (!there) return;
      Raise(own_width, table_width);
      Raise(own_colour, table_colour);
    };
    raise(place.first_row, width.top, level.borderTop, colour.top, level.colourTop);
    raise(place.last_row, width.bottom, level.borderBottom, colour.bottom, level.colourBottom);
    raise(place.first_cell, width.left, level.borderLeft, colour.left, level.colourLeft);
    raise(place.last_cell, width.right, level.borderRight, colour.right, level.colourRight);
  }
  Text words;
  AppendEdge(words, u"\\clbrdrt", width.top, colour.top);
  AppendEdge(words, u" \\clbrdrr", width.right, colour.right);
  AppendEdge(words, u" \\clbrdrb", width.bottom, colour.bottom);
  AppendEdge(words, u" \\clbrdrl", width.left, colour.left);
  return words;
}

Text CellShading(Apartment& apartment, TextView tag) {
  const Text colour = ReadBackground(apartment, tag);
  if (colour.empty()) return {};
  return u"\\clcbpat" + Decimal(ColourNumber(apartment.html_to_rtf, colour));
}

}  // namespace quillary::HTMLRTFConverter
