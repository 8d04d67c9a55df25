#include "platform/rich_text/writer/canonical_tables.h"

#include <algorithm>
#include <unordered_map>

#include "platform/rich_text/writer/canonical_paragraphs.h"

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

/// Places in the order of their numbers, with the first two that are of
/// bullets among the numbers 1 and 2 where there is another font for 0.
std::vector<std::size_t> BulletFontsInReach(const std::vector<bool>& of_bullets) {
  std::vector<std::size_t> bullets;
  std::vector<std::size_t> others;
  for (std::size_t place = 0; place < of_bullets.size(); ++place) {
    (of_bullets[place] ? bullets : others).push_back(place);
  }
  std::vector<std::size_t> order;
  const auto moved = static_cast<std::ptrdiff_t>(std::min<std::size_t>(bullets.size(), 2));
  const auto in_reach = [](std::size_t place) { return place == 1 || place == 2; };
  const bool moves = !others.empty() && !std::all_of(bullets.begin(), bullets.begin() + moved, in_reach);
  if (moves) {
    order.push_back(others.front());
    order.insert(order.end(), bullets.begin(), bullets.begin() + moved);
  }
  const auto in_front = static_cast<std::ptrdiff_t>(order.size());
  for (std::size_t place = 0; place < of_bullets.size(); ++place) {
    const auto end = order.begin() + in_front;
    if (std::find(order.begin(), end, place) == end) order.push_back(place);
  }
  return order;
}

}  // namespace

struct CanonicalTables::Use {
  std::vector<bool> fonts;         // by index
  std::vector<bool> bullet_fonts;  // by index
  std::vector<bool> colours;       // by id
  std::vector<bool> highlights;    // by id
  bool own_bullets = false;

  explicit Use(const Document& document)
      : fonts(document.fonts.size()),
        bullet_fonts(document.fonts.size()),
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
        bullet_fonts[*document.lists[list].font] = true;
      } else {
        own_bullets = true;
      }
    }
  }
};

CanonicalTables::CanonicalTables(const Document& document) : document_(document) {
  const Use use(document);
  NumberFonts(use);
  format_changes_ = FindFormatChanges(document, *this);
  NumberColours(use);
}

/// Fonts keep their order, but for those of bullets: the rules know bullets in
/// fonts 1 and 2 only, so a bullet font beyond these comes right after the
/// first font that is none.
void CanonicalTables::NumberFonts(const Use& use) {
  std::unordered_map<Text, std::size_t> entries;
  std::vector<Text> order;
  std::vector<bool> of_bullets;  // by place in that order
  const auto add = [&](const Text& entry, bool is_of_bullets) {
    const auto [place, is_new] = entries.try_emplace(entry, order.size());
    if (is_new) {
      order.push_back(entry);
      of_bullets.push_back(false);
    }
    if (is_of_bullets) of_bullets[place->second] = true;
    return place->second;
  };
  std::vector<std::size_t> places(document_.fonts.size());
  for (std::size_t index = 0; index < document_.fonts.size(); ++index) {
    if (use.fonts[index]) places[index] = add(TableEntry(document_.fonts[index]), use.bullet_fonts[index]);
  }
  const std::size_t own_place = use.own_bullets ? add(kOwnBulletFont, true) : 0;

  const std::vector<std::size_t> by_number = BulletFontsInReach(of_bullets);
  std::vector<std::int32_t> numbers(order.size());
  for (std::size_t number = 0; number < by_number.size() && number < kMostFonts; ++number) {
    font_entries_.push_back(order[by_number[number]]);
    numbers[by_number[number]] = static_cast<std::int32_t>(number);
  }
  font_numbers_.resize(document_.fonts.size());
  for (std::size_t index = 0; index < places.size(); ++index) {
    if (use.fonts[index]) font_numbers_[index] = numbers[places[index]];
  }
  own_bullet_font_ = order.empty() ? 0 : numbers[own_place];
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
    if (index > 0 && FormatChanges(index) && collide()) return true;
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
