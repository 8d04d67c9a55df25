#include "platform/rich_text/reader/rtf_font_table.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "platform/code_pages/code_pages.h"
#include "platform/rich_text/reader/byte_text.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::size_t kLongestName = 31;  // as in the control
constexpr std::size_t kMostFonts = std::numeric_limits<std::uint16_t>::max() - 1;

// What stands at the end of a font's name for its charset.
struct CharsetSuffix {
  std::int32_t charset;
  TextView suffix;
};

constexpr CharsetSuffix kCharsetSuffixes[] = {
    {161, u" Greek"},    {162, u" Tur"},      {163, u" (Vietnamese)"}, {177, u" (Hebrew)"},
    {178, u" (Arabic)"}, {179, u" (Arabic)"}, {180, u" (Arabic)"},     {181, u" (Hebrew)"},
    {186, u" Baltic"},   {204, u" Cyr"},      {222, u" (Thai)"},       {238, u" CE"},
};

struct KnownName {
  TextView own;
  TextView latin;
};

// Fonts of the Far East by their own names. A page names them in Latin letters.
constexpr KnownName kKnownNames[] = {
    {u"ＭＳ 明朝", u"MS Mincho"},
    {u"ＭＳ Ｐ明朝", u"MS PMincho"},
    {u"ＭＳ ゴシック", u"MS Gothic"},
    {u"ＭＳ Ｐゴシック", u"MS PGothic"},
    {u"メイリオ", u"Meiryo"},
    {u"宋体", u"SimSun"},
    {u"新宋体", u"NSimSun"},
    {u"黑体", u"SimHei"},
    {u"楷体", u"KaiTi"},
    {u"楷体_GB2312", u"KaiTi"},
    {u"仿宋", u"FangSong"},
    {u"仿宋_GB2312", u"FangSong"},
    {u"微软雅黑", u"Microsoft YaHei"},
    {u"新細明體", u"PMingLiU"},
    {u"細明體", u"MingLiU"},
    {u"標楷體", u"DFKai-SB"},
    {u"微軟正黑體", u"Microsoft JhengHei"},
    {u"굴림", u"Gulim"},
    {u"굴림체", u"GulimChe"},
    {u"돋움", u"Dotum"},
    {u"돋움체", u"DotumChe"},
    {u"바탕", u"Batang"},
    {u"바탕체", u"BatangChe"},
    {u"궁서", u"Gungsuh"},
    {u"맑은 고딕", u"Malgun Gothic"},
};

TextView SuffixOfCharset(std::int32_t charset) {
  for (const CharsetSuffix& entry : kCharsetSuffixes) {
    if (entry.charset == charset) return entry.suffix;
  }
  return {};
}

bool IsAscii(TextView text) {
  return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

// The name as the canonical table may hold it: nothing that ends an entry, no mark of
// vertical writing, no three capitals, which the reader of the table takes
// for a tag.
Text TableName(TextView raw) {
  Text name;
  for (const char16_t unit : raw) {
    const bool ends_entry = unit == u';' || unit == u'}' || unit == u'{' || unit == u'\\';
    const bool is_control = unit < u' ' || (unit >= 0x7F && unit <= 0x9F);
    if (!is_control && !ends_entry) name += unit;
  }
  name.erase(0, std::min(name.find_first_not_of(u"@ "), name.size()));
  name = Trim(name);
  if (name.size() == 3 && name == ToUpper(name)) {
    name = name.substr(0, 1) + ToLower(name.substr(1));
    if (name == ToUpper(name)) name += u'_';
  }
  return name;
}

bool IsSymbolName(TextView name) {
  constexpr std::array<TextView, 3> kNames = {u"Symbol", u"Wingdings", u"Webdings"};
  return std::any_of(kNames.begin(), kNames.end(),
                     [&](TextView known) { return Equal(name, known, Compare::IgnoreCase); });
}

}  // namespace

void FontTable::ReadWord(const Token& token) {
  switch (token.keyword) {
    case Keyword::F:
      EndEntry();
      open_ = true;
      number_ = token.number;
      break;
    case Keyword::Fnil:
    case Keyword::Ftech:
    case Keyword::Fbidi:
      break;
    case Keyword::Froman:
      font_.family = "froman";
      break;
    case Keyword::Fswiss:
      font_.family = "fswiss";
      break;
    case Keyword::Fmodern:
      font_.family = "fmodern";
      break;
    case Keyword::Fscript:
      font_.family = "fscript";
      break;
    case Keyword::Fdecor:
      font_.family = "fdecor";
      break;
    case Keyword::Fprq:
      if (token.number >= 1 && token.number <= 2) font_.pitch = token.number;
      break;
    case Keyword::Fcharset:
      font_.charset = token.number;
      break;
    case Keyword::Cpg:
      font_.code_page = token.number;
      break;
    case Keyword::U: {
      const std::int32_t unit = token.number < 0 ? token.number + 0x10000 : token.number;
      if (unit >= 0x80 && unit <= 0xFFFF) font_.name += static_cast<char16_t>(unit);
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
      font_.name += unit;
    }
  }
}

void FontTable::ReadByte(unsigned char byte) { bytes_ += static_cast<char>(byte); }

/// The name in letters that a page can name a font by.
Text FontTable::PlainName() {
  Text name(TrimView(font_.name));
  if (IsAscii(name)) return name;
  for (const KnownName& known : kKnownNames) {
    if (name == known.own) return Text(known.latin);
  }
  if (!alternative_.empty() && IsAscii(alternative_)) return alternative_;
  const bool western = std::all_of(name.begin(), name.end(), [](char16_t unit) { return unit <= 0xFF; });
  if (western) return name;
  switch (font_.charset.value_or(0)) {
    case 128:
      return u"MS Mincho";
    case 129:
      return u"Gulim";
    case 136:
      return u"PMingLiU";
    case 134:
      return u"SimSun";
    default:
      return u"Arial";
  }
}

void FontTable::EndEntry() {
  if (!open_) {
    bytes_.clear();
    return;
  }
  const std::int32_t charset = font_.charset.value_or(0);
  if (font_.code_page == 0) font_.code_page = platform::CodePageOfCharset(charset);
  if (!IsKnownCodePage(font_.code_page)) font_.code_page = 0;
  if (!bytes_.empty()) {
    font_.name += DecodePage(font_.code_page != 0 ? font_.code_page : document_code_page_, bytes_);
  }
  font_.name = PlainName();
  const TextView suffix = SuffixOfCharset(charset);
  const TextView name = font_.name;
  if (name.size() > suffix.size() &&
      Equal(name.substr(name.size() - suffix.size()), suffix, Compare::IgnoreCase)) {
    font_.name.resize(name.size() - suffix.size());
  }
  if (font_.name.size() > kLongestName) font_.name.resize(kLongestName);
  font_.name = TableName(font_.name);
  // The oldest control names symbol fonts without their charset.
  if (font_.charset.value_or(1) == 1 && IsSymbolName(font_.name)) font_.charset = 2;
  if (document_.fonts.size() < kMostFonts) {
    const auto index = static_cast<std::uint16_t>(document_.fonts.size());
    if (!font_.IsSymbol() && !first_with_letters_) first_with_letters_ = index;
    document_.fonts.push_back(std::move(font_));
    indexes_[number_] = index;
  }
  font_ = Font{};
  bytes_.clear();
  alternative_.clear();
  open_ = false;
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
