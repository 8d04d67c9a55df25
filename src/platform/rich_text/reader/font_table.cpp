#include "platform/rich_text/reader/font_table.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/code_pages/code_pages.h"
#include "platform/rich_text/reader/byte_text.h"
#include "platform/rich_text/reader/font_names.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::size_t kMostFonts = std::numeric_limits<std::uint16_t>::max() - 1;

}  // namespace

void FontTable::ReadWord(const Token& token) {
  switch (token.keyword) {
    case Keyword::F:
      EndEntry();
      entry_.is_open = true;
      entry_.number = token.number;
      break;
    case Keyword::Froman:
      entry_.font.family = "froman";
      break;
    case Keyword::Fswiss:
      entry_.font.family = "fswiss";
      break;
    case Keyword::Fmodern:
      entry_.font.family = "fmodern";
      break;
    case Keyword::Fscript:
      entry_.font.family = "fscript";
      break;
    case Keyword::Fdecor:
      entry_.font.family = "fdecor";
      break;
    case Keyword::Fprq:
      if (token.number >= 1 && token.number <= 2) entry_.font.pitch = token.number;
      break;
    case Keyword::Fcharset:
      entry_.font.charset = token.number;
      break;
    case Keyword::Cpg:
      entry_.font.code_page = token.number;
      break;
    case Keyword::U: {
      const std::int32_t unit = token.number < 0 ? token.number + 0x10000 : token.number;
      if (unit >= 0x80 && unit <= 0xFFFF) entry_.font.name += static_cast<char16_t>(unit);
      break;
    }
    default:
      break;
  }
}

void FontTable::ReadText(TextView text) {
  for (const char16_t unit : text) {
    if (unit == u';') {
      EndEntry();
    } else if (unit < 0x80) {
      ReadByte(static_cast<unsigned char>(unit));
    } else {
      entry_.font.name += unit;
    }
  }
}

void FontTable::ReadByte(unsigned char byte) { entry_.bytes += static_cast<char>(byte); }

void FontTable::EndEntry() {
  if (!entry_.is_open) {
    entry_.bytes.clear();
    return;
  }
  Font& font = entry_.font;
  if (font.code_page == 0) font.code_page = platform::CodePageOfCharset(font.charset.value_or(0));
  if (!IsKnownCodePage(font.code_page)) font.code_page = 0;
  if (!entry_.bytes.empty()) {
    font.name += DecodePage(font.code_page != 0 ? font.code_page : document_code_page_, entry_.bytes);
  }
  font.name = FontName(font, entry_.alternative_name);
  // The oldest control names symbol fonts without their charset.
  if (font.charset.value_or(1) == 1 && IsSymbolName(font.name)) font.charset = 2;
  if (document_.fonts.size() < kMostFonts) {
    const auto index = static_cast<std::uint16_t>(document_.fonts.size());
    if (!font.IsSymbol() && !first_with_letters_) first_with_letters_ = index;
    document_.fonts.push_back(std::move(font));
    indexes_[entry_.number] = index;
  }
  entry_ = Entry{};
}

void FontTable::Close() {
  EndEntry();
  // A producer that writes another code page but gives every font the Western
  // charset knows nothing of charsets: its bytes are those of the document.
  western_means_document_ =
      document_code_page_ != 1252 &&
      std::none_of(document_.fonts.begin(), document_.fonts.end(), [&](const Font& font) {
        return font.code_page != 0 && font.code_page == document_code_page_;
      });
}

std::optional<std::uint16_t> FontTable::FindIndex(std::int32_t number) const {
  auto found = indexes_.find(number);
  if (found == indexes_.end()) found = indexes_.find(default_number_);
  if (found != indexes_.end()) return found->second;
  return first_with_letters_;
}

const Font* FontTable::Find(std::int32_t number) const {
  const std::optional<std::uint16_t> index = FindIndex(number);
  return index ? &document_.fonts[*index] : nullptr;
}

std::uint16_t FontTable::Index(std::int32_t number) {
  const std::optional<std::uint16_t> index = FindIndex(number);
  if (index) return *index;
  Font font;
  font.charset = 0;
  font.name = u"Times New Roman";
  font.code_page = document_code_page_;
  first_with_letters_ = static_cast<std::uint16_t>(document_.fonts.size());
  document_.fonts.push_back(font);
  return *first_with_letters_;
}

int FontTable::CodePageOfCharset(const Font& font) const {
  if (font.code_page != 0) return font.code_page;
  if (font.charset == 0) return western_means_document_ ? document_code_page_ : 1252;
  return document_code_page_;
}

int FontTable::CodePage(std::int32_t number) const {
  const Font* font = Find(number);
  return font == nullptr ? document_code_page_ : CodePageOfCharset(*font);
}

bool FontTable::IsSymbol(std::int32_t number) const {
  const Font* font = Find(number);
  return font != nullptr && font->IsSymbol();
}

}  // namespace quillary::platform::rtf
