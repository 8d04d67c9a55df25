#include "rtf_to_html/document_tables/colour_table.h"

#include "rtf_to_html/document_tables/colour_table.rules.h"
#include "rules/run.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kBlack = u"#000000";

// Two hexadecimal digits for the decimal number that stands in `entry`, or
// nothing where there is no such number.
Text HexOfPart(TextView entry, std::int32_t start, std::int32_t count) {
  Text digits;
  Attempt([&] {
    digits = Hex16(ToInteger16(Mid(entry, start, count)));
    if (digits.size() == 1) digits.insert(0, u"0");
  });
  return digits;
}

// "bbggrr" as "rrggbb", for a text of six units.
Text SwapPairs(TextView digits) { return Mid(digits, 5, 2) + Mid(digits, 3, 2) + Mid(digits, 1, 2); }

bool HasNonZeroDigit(TextView number) { return number.find_first_of(u"123456789") != TextView::npos; }
bool IsNegative(TextView number) { return number.find(u'-') != TextView::npos; }

struct KnownColour {
  TextView from;
  TextView to;
};

// Colours that a host takes from the system's settings, by their number.
constexpr KnownColour kSystemColours[] = {
    {u"-2147483643", u"FFFFFF"}, {u"-2147483648", u"C0C0C0"}, {u"-2147483647", u"A6CAF0"},
    {u"-2147483646", u"000080"}, {u"-2147483645", u"808080"}, {u"-2147483644", u"C0C0C0"},
    {u"-2147483642", u"000000"}, {u"-2147483641", u"000000"}, {u"-2147483640", u"000000"},
    {u"-2147483633", u"C0C0C0"}, {u"-2147483624", u"FFFFE1"},
};

// "cyan" is white and "light blue" a dark blue; hosts rely on both.
constexpr KnownColour kNamedColours[] = {
    {u"black", u"000000"},      {u"blue", u"0000FF"},       {u"green", u"00FF00"},
    {u"cyan", u"FFFFFF"},       {u"red", u"FF0000"},        {u"magenta", u"FF00FF"},
    {u"yellow", u"FFFF00"},     {u"white", u"FFFFFF"},      {u"grey", u"B5B5B5"},
    {u"gray", u"B5B5B5"},       {u"light blue", u"00008B"}, {u"light green", u"90EE90"},
    {u"light cyan", u"E0FFFF"}, {u"light red", u"FF6347"},  {u"pink", u"FF80FF"},
    {u"brown", u"A52A2A"},      {u"orange", u"FF8C00"},
};

void ReplaceSystemColour(Text& colour) {
  for (const KnownColour& known : kSystemColours) {
    if (colour == known.from) {
      colour = known.to;
      return;
    }
  }
  if (colour.empty() || (IsNumeric(colour) && IsNegative(colour) && HasNonZeroDigit(colour))) {
    colour = u"FFFFFF";
  }
}

void ReplaceNamedColour(Text& colour) {
  const Text folded = ToLower(colour);
  for (const KnownColour& known : kNamedColours) {
    if (folded == known.from) {
      colour = known.to;
      return;
    }
  }
}

}  // namespace

void ReadColourTable(RtfToHtmlState& state, TextView text) {
  state.ColourCount = 0;
  const std::int32_t start = FindText(1, text, u"{\\colortbl");
  if (start == 0) {
    state.BodyStart = FindText(1, text, u";}}");
    return;
  }
  std::int32_t end = FindText(start, text, u";}");
  if (end == 0) end = FindText(start, text, u"}");
  if (end == 0) {
    state.ColourTable.Size(100);
    for (std::int32_t i = 1; i <= 100; ++i) state.ColourTable.Set(i, Text(kBlack));
    return;
  }
  state.BodyStart = end;
  const Text table = rules::RunOver(chains::ColourTableCleaning, Mid(text, start, end - start + 2));

  const std::int32_t count = CountOccurrences(table, u"red");
  state.ColourCount = count;
  state.ColourTable.Size(count);
  // The rich text control writes "{\colortbl ;": its first real colour is
  // number 1. Without the blank the first one is number 0.
  const std::int32_t shift = Holds(table, u"\\colortbl ;\\") ? 1 : 0;

  std::int32_t separator = 1;
  int retries = 0;
  for (std::int32_t i = 1; i <= count; ++i) {
    std::int32_t red = 0;
    while (true) {
      if (separator == 0) separator = FindText(LastPosition(table, u"red"), table, u"}");
      if (separator != 0) red = FindText(separator, table, u"red");
      if (separator == 0 || red == 0) {
        state.ColourTable.Set(i - 1 + shift, Text(kBlack));
        return;
      }
      separator = FindText(red, table, u";");
      if (separator >= red) break;
      if (++retries > 3) return;
    }
    state.ColourTable.Set(i - 1 + shift, ConvertColourEntry(MidView(table, red, separator - red)));
  }
}

Text ConvertColourEntry(TextView entry) {
  Text one_line(entry);
  ReplaceIn(one_line, u"\n", u"");
  ReplaceIn(one_line, u"\r", u"");
  const std::int32_t green = FindText(1, one_line, u"\\green");
  const std::int32_t blue = FindText(1, one_line, u"\\blue");
  return u"#" + ToLower(HexOfPart(one_line, 4, green - 4) + HexOfPart(one_line, green + 6, blue - green - 6) +
                        HexOfPart(one_line, blue + 5, Length(one_line)));
}

void NormaliseColour(Text& colour) {
  if (colour == u"80000005") colour = u"FFFFFF";
  if (IsNumeric(colour) && !IsNegative(colour) && HasNonZeroDigit(colour)) {
    Attempt([&] { colour = Hex(ToInteger32(colour)); });
    if (colour.size() == 6) colour = SwapPairs(colour);
  }
  ReplaceSystemColour(colour);
  colour = Trim(colour);
  ReplaceNamedColour(colour);
  if (colour.size() > 4 && colour.starts_with(u"0x")) colour.erase(0, 2);
  if (colour.empty() || colour.size() >= 6) return;
  colour.insert(0, 6 - colour.size(), u'0');
  colour = SwapPairs(colour);
}

}  // namespace quillary::modQuillary
