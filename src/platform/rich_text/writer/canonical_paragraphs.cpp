#include "platform/rich_text/writer/canonical_paragraphs.h"

#include <utility>

#include "text/ascii.h"

namespace quillary::platform::rtf {
namespace {

// The page indents a paragraph by its left indent only where "\li" stands
// first; the rules for lists know the other order.
void AppendIndents(Text& words, const ParagraphFormat& format, bool is_item) {
  const auto add = [&](TextView word, std::int32_t measure) {
    if (measure != 0) AppendNumber(words, word, measure);
  };
  if (is_item) add(u"\\fi", format.first_indent);
  add(u"\\li", format.left_indent);
  if (!is_item) add(u"\\fi", format.first_indent);
  add(u"\\ri", format.right_indent);
}

/// A paragraph format as it is written.
struct WrittenFormat {
  Text words;
  std::uint32_t row = 0;
  ListFormat list;

  bool operator==(const WrittenFormat&) const = default;
};

/// A list with the number of its font, and with its first number.
ListFormat WrittenList(const Document& document, const Paragraph& paragraph, const CanonicalTables& tables) {
  const std::uint32_t id = document.formats[paragraph.format].list;
  ListFormat list = document.lists[id];
  if (id == 0) return list;
  if (list.bullet) {
    const auto font = static_cast<std::uint16_t>(tables.BulletFont(list));
    return {.bullet = true, .font = font, .indent = list.indent, .start = {}, .before = {}, .after = {}};
  }
  if (!list.start) list.start = document.labels[paragraph.label].ordinal;
  return list;
}

}  // namespace

void AppendNumber(Text& words, TextView word, std::int32_t number) {
  words += word;
  words += Decimal(number);
}

bool IsTypedItem(const Document& document, std::size_t begin, std::size_t end) {
  std::size_t at = begin;
  while (at < end && document.text[at] == u' ') ++at;
  if (at + 1 >= end || document.text[at + 1] != structure::kTab) return false;
  const char16_t unit = document.text[at];
  const bool is_letter_or_digit = IsAsciiAlphanumeric(unit) && unit != u'o';
  return unit > u' ' && !is_letter_or_digit;
}

Text ParagraphWords(const Document& document, const ParagraphFormat& format, bool is_item) {
  Text words;
  if (format.row != 0) words += u"\\intbl";
  if (format.right_to_left) {
    words += u"\\rtlpar";
  } else if (document.right_to_left) {
    words += u"\\ltrpar";
  }
  if (format.keep) words += u"\\keep";
  if (format.keep_next) words += u"\\keepn";
  if (format.no_widow_control && format.list == 0) words += u"\\nowidctlpar";
  AppendIndents(words, format, is_item);
  if (format.space_before != 0) AppendNumber(words, u"\\sb", format.space_before);
  if (format.space_after != 0) AppendNumber(words, u"\\sa", format.space_after);
  if (format.line_spacing != 0) {
    AppendNumber(words, u"\\sl", format.line_spacing);
    AppendNumber(words, u"\\slmult", format.line_multiple);
  }
  if (format.alignment == Alignment::Centre) words += u"\\qc";
  if (format.alignment == Alignment::Right) words += u"\\qr";
  if (format.alignment == Alignment::Justified) words += u"\\qj";
  for (const TabStop& stop : document.tabs[format.tabs]) {
    if (stop.kind == Alignment::Centre) words += u"\\tqc";
    if (stop.kind == Alignment::Right) words += u"\\tqr";
    if (stop.kind == Alignment::Justified) words += u"\\tqdec";
    AppendNumber(words, u"\\tx", stop.position);
  }
  return words;
}

std::vector<bool> FindFormatChanges(const Document& document, const CanonicalTables& tables) {
  std::vector<bool> changes(document.paragraphs.size());
  WrittenFormat written;
  for (std::size_t index = 0; index < document.paragraphs.size(); ++index) {
    const Paragraph& paragraph = document.paragraphs[index];
    if (index > 0 && paragraph.format == document.paragraphs[index - 1].format) continue;
    const ParagraphFormat& format = document.formats[paragraph.format];
    WrittenFormat own{.words = ParagraphWords(document, format, format.list != 0),
                      .row = format.row,
                      .list = WrittenList(document, paragraph, tables)};
    changes[index] = index == 0 || own != written;
    written = std::move(own);
  }
  return changes;
}

}  // namespace quillary::platform::rtf
