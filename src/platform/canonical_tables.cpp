#include "platform/canonical_tables.h"

#include <algorithm>
#include <unordered_map>

namespace quillary::platform::rtf {
namespace {

// The readers of the tables see the first 20,000 units of a document.
constexpr std::size_t kMostFonts = 150;
constexpr std::size_t kMostColours = 300;

const Text kOwnBulletFont = u"\\fnil\\fcharset2 Symbol;";
const Text kPlainFontStart = u"\\fnil\\fcharset0 ";

/// All text is in Windows-1252 or in \u words, so a font's charset is Western
/// or that of symbols.
Text TableEntry(const Font& font) {
  Text entry = u"\\" + Text(font.family.begin(), font.family.end());
  if (font.pitch) entry += u"\\fprq" + Decimal(*font.pitch);
  if (font.IsSymbol()) {
    entry += u"\\fcharset2";
  } else if (font.charset && *font.charset != 1) {
    entry += u"\\fcharset0";
  }
  return entry + u" " + font.name + u";";
}

}  // namespace

struct CanonicalTables::Use {
  std::vector<bool> fonts;       // by index
  std::vector<bool> colours;     // by id
  std::vector<bool> highlights;  // by id
  bool own_bullets = false;

  explicit Use(const Document& document)
      : fonts(document.fonts.size()),
        colours(document.colours.size() + 1),
        highlights(document.colours.size() + 1) {
    std::vector<bool> seen;
    for (const Run& run : document.runs) {
      if (seen.size() <= run.format) seen.resize(run.format + std::size_t{1});
      if (seen[run.format]) continue;
      seen[run.format] = true;
      const CharacterFormat& format = document.characters[run.format];
      fonts[format.font] = true;
      colours[format.colour] = true;
      colours[format.highlight] = true;
      highlights[format.highlight] = true;
    }
    for (const Paragraph& paragraph : document.paragraphs) {
      const std::uint32_t list = document.formats[paragraph.format].list;
      if (list == 0 || !document.lists[list].bullet) continue;
      if (document.lists[list].font) {
        fonts[*document.lists[list].font] = true;
      } else {
        own_bullets = true;
      }
    }
  }
};

CanonicalTables::CanonicalTables(const Document& document) : document_(document) {
  const Use use(document);
  NumberFonts(use);
  NumberColours(use);
}

void CanonicalTables::NumberFonts(const Use& use) {
  std::unordered_map<Text, std::int32_t> numbers;
  font_numbers_.resize(document_.fonts.size());
  const auto add = [&](const Text& entry) {
    if (font_entries_.size() >= kMostFonts) return std::int32_t{0};
    const auto [place, is_new] = numbers.try_emplace(entry, static_cast<std::int32_t>(font_entries_.size()));
    if (is_new) font_entries_.push_back(entry);
    return place->second;
  };
  // The rules for bullets know them best in font 1.
  for (std::size_t index = 0; index < document_.fonts.size(); ++index) {
    if (!use.fonts[index]) continue;
    font_numbers_[index] = add(TableEntry(document_.fonts[index]));
    if (use.own_bullets && font_entries_.size() == 1) own_bullet_font_ = add(kOwnBulletFont);
  }
}

std::int32_t CanonicalTables::BulletFont(const ListFormat& list) const {
  return list.font ? FontNumber(*list.font) : own_bullet_font_;
}

bool CanonicalTables::StartsInFontZero() const { return font_entries_.front().starts_with(kPlainFontStart); }

/// Up to nine colours keep their order. With more of them a number must not
/// begin another one, or the shorter is taken for the longer on the page.
void CanonicalTables::NumberColours(const Use& use) {
  colour_numbers_.resize(document_.colours.size());
  std::vector<std::uint16_t> order;
  const auto count = static_cast<std::size_t>(std::count(use.colours.begin() + 1, use.colours.end(), true));
  const bool many = count > 9;
  for (const bool highlights : {true, false}) {
    if (highlights && !many) continue;
    for (std::size_t id = 1; id < use.colours.size() && order.size() < kMostColours; ++id) {
      if (use.colours[id] && (!many || use.highlights[id] == highlights))
        order.push_back(static_cast<std::uint16_t>(id));
    }
  }
  for (std::size_t index = 0; index < order.size(); ++index) {
    colour_numbers_[order[index] - std::size_t{1}] = static_cast<std::int32_t>(index + 1);
  }
  const auto highlight_count = std::count(use.highlights.begin() + 1, use.highlights.end(), true);
  if (many && (highlight_count > 9 || NumbersCollide())) NumberManyColours(use, order);
  for (const std::uint16_t id : order) {
    const auto number = static_cast<std::size_t>(colour_numbers_[id - std::size_t{1}]);
    if (colour_entries_.size() < number) colour_entries_.resize(number);
    colour_entries_[number - 1] = document_.colours[id - std::size_t{1}];
  }
}

/// Whether a paragraph, with all that follow it in the same format, holds two
/// colours of which one number begins the other.
bool CanonicalTables::NumbersCollide() const {
  std::vector<std::int32_t> numbers;
  const auto collide = [&] {
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    for (const std::int32_t number : numbers) {
      for (std::int32_t start = number / 10; start > 0; start /= 10) {
        if (std::binary_search(numbers.begin(), numbers.end(), start)) return true;
      }
    }
    numbers.clear();
    return false;
  };
  std::size_t run = 0;
  std::size_t begin = 0;
  for (std::size_t index = 0; index < document_.paragraphs.size(); ++index) {
    const Paragraph& paragraph = document_.paragraphs[index];
    if (index > 0 && paragraph.format != document_.paragraphs[index - 1].format && collide()) return true;
    while (run + 1 < document_.runs.size() && document_.runs[run + 1].begin <= begin) ++run;
    for (std::size_t at = run; at < document_.runs.size() && document_.runs[at].begin < paragraph.end; ++at) {
      numbers.push_back(ColourNumber(document_.characters[document_.runs[at].format].colour));
    }
    begin = paragraph.end;
  }
  return collide();
}

/// Gives up the digits 1 to d as numbers of their own and has 10 to 10d + 9
/// instead; beyond ninety colours only highlights keep one digit.
void CanonicalTables::NumberManyColours(const Use& use, const std::vector<std::uint16_t>& order) {
  std::size_t given_up = 1;
  while (given_up < 9 && 9 - given_up + 10 * given_up < order.size()) ++given_up;
  const bool two_digits = order.size() <= 90;
  std::int32_t next = two_digits ? static_cast<std::int32_t>(given_up + 1) : 1;
  for (const std::uint16_t id : order) {
    if (!two_digits && next < 100 && (next > 9 || !use.highlights[id])) next = 100;
    colour_numbers_[id - std::size_t{1}] = next++;
  }
}

Text CanonicalTables::Header() const {
  Text header = u"{\\rtf1";
  if (document_.right_to_left) header += u"\\fbidis";
  header += u"\\ansi";
  if (document_.states_code_page) header += u"\\ansicpg1252";
  header += u"\\deff0\\deflang" + Decimal(document_.language) + u"{\\fonttbl";
  for (std::size_t number = 0; number < font_entries_.size(); ++number) {
    header += u"{\\f" + Decimal(static_cast<std::int64_t>(number)) + font_entries_[number] + u"}";
  }
  header += u"}\r\n";
  if (colour_entries_.empty()) return header;
  header += u"{\\colortbl ;";
  for (const Colour& colour : colour_entries_) {
    header += u"\\red" + Decimal(colour.red) + u"\\green" + Decimal(colour.green) + u"\\blue" +
              Decimal(colour.blue) + u";";
  }
  return header + u"}\r\n";
}

}  // namespace quillary::platform::rtf
