#include "html_to_rtf/charsets/cjk_cells.h"

#include <cstdint>
#include <string>

#include "text/encodings.h"
#include "text/failure.h"

namespace quillary::HTMLRTFConverter {

constinit const CjkTable kJisTable = {
#include "cjk_tables/jis_x_0208.inc"
};
constinit const CjkTable kGbTables = {
#include "cjk_tables/gb_2312.inc"
};

namespace {

void AppendByte(Text& to, int byte) {
  constexpr TextView kDigits = u"0123456789abcdef";
  to.append(u"\\'") += kDigits[static_cast<std::size_t>(byte >> 4)];
  to += kDigits[static_cast<std::size_t>(byte & 15)];
}

void AppendCharacter(Text& to, char16_t character) {
  switch (character) {
    case 0:
      return;
    case u'\u2014':
      to += u"\\emdash ";
      return;
    case u'\u2018':
      to += u"\\lquote ";
      return;
    case u'\u2019':
      to += u"\\rquote ";
      return;
    case u'\u02C7':  // a caron; fonts of that charset have it at this byte
      to += u"\\'a1";
      return;
    default:
      break;
  }
  const std::string byte = ToWindows1252(TextView(&character, 1), '\0');
  if (byte[0] != '\0') return AppendByte(to, static_cast<unsigned char>(byte[0]));
  to.append(u"\\u").append(Decimal(static_cast<std::int16_t>(character)));
  // Two characters have a fallback that looks like them.
  to += character == u'\u02C9' ? u"\\'af" : character == u'\u2236' ? u"\\'3a" : u"\\'3F";
}

}  // namespace

void AppendCell(Text& to, const CjkTable& table, int row, int column) {
  constexpr int kEnd = 94;
  if (row < 0 || row > kEnd || column < 0 || column > kEnd) return;
  if (row == kEnd || column == kEnd) throw Failure(Failure::Kind::Subscript);
  AppendCharacter(to, table[row][column]);
}

}  // namespace quillary::HTMLRTFConverter
