#include "platform/rich_text/reader/font_names.h"

#include <algorithm>
#include <array>

#include "platform/rich_text/reader/font_charsets.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::size_t kLongestName = 31;  // as in the control

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

bool IsAscii(TextView text) {
  return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

/// The name in letters that a page can name a font by.
Text PlainName(const Font& font, TextView alternative) {
  Text name(TrimView(font.name));
  if (IsAscii(name)) return name;
  for (const KnownName& known : kKnownNames) {
    if (name == known.own) return Text(known.latin);
  }
  if (!alternative.empty() && IsAscii(alternative)) return Text(alternative);
  const bool western = std::all_of(name.begin(), name.end(), [](char16_t unit) { return unit <= 0xFF; });
  if (western) return name;
  switch (font.charset.value_or(0)) {
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

// The name as the canonical table may hold it: nothing that ends an entry, no "@" of
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

}  // namespace

Text FontName(const Font& font, TextView alternative) {
  Text name = PlainName(font, alternative);
  const TextView suffix = SuffixOfCharset(font.charset.value_or(0));
  if (!suffix.empty() && name.size() > suffix.size()) {
    const TextView end = TextView(name).substr(name.size() - suffix.size());
    if (Equal(end, suffix, Compare::IgnoreCase)) name.resize(name.size() - suffix.size());
  }
  if (name.size() > kLongestName) name.resize(kLongestName);
  return TableName(name);
}

bool IsSymbolName(TextView name) {
  constexpr std::array<TextView, 3> kNames = {u"Symbol", u"Wingdings", u"Webdings"};
  return std::any_of(kNames.begin(), kNames.end(),
                     [&](TextView known) { return Equal(name, known, Compare::IgnoreCase); });
}

}  // namespace quillary::platform::rtf
