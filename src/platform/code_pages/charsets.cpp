#include "platform/code_pages/charsets.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <iterator>
#include <memory>
#include <string>

#include "platform/code_pages/code_pages.h"
#include "text/ascii.h"
#include "text/encodings.h"
#include "text/failure.h"

namespace quillary::platform {
namespace {

struct CharsetRow {
  Charset charset;
  std::string_view labels;          // with a space between them
  int code_page = 0;                // whose table decides; 0 for none
  const char* converter = nullptr;  // of the C library, where there is no code page
  std::size_t unit = 1;             // how many bytes are passed over where they are malformed
};

constexpr CharsetRow kCharsets[] = {
    {Charset::Utf8, "utf-8 utf8 unicode-1-1-utf-8 unicode11utf8 unicode20utf8 x-unicode20utf8"},
    {Charset::Utf16Le, "utf-16 utf-16le csunicode iso-10646-ucs-2 ucs-2 unicode unicodefeff", 0, "UTF-16LE",
     2},
    {Charset::Utf16Be, "utf-16be unicodefffe", 0, "UTF-16BE", 2},
    {Charset::Utf32Le, "", 0, "UTF-32LE", 4},
    {Charset::Utf32Be, "", 0, "UTF-32BE", 4},
    {Charset::Windows1250, "windows-1250 cp1250 x-cp1250", 1250},
    {Charset::Windows1251, "windows-1251 cp1251 x-cp1251", 1251},
    {Charset::Windows1252,
     "windows-1252 cp1252 x-cp1252 ascii us-ascii ansi_x3.4-1968 cp819 ibm819 iso-8859-1 iso8859-1 iso88591 "
     "iso_8859-1 iso_8859-1:1987 iso-ir-100 csisolatin1 l1 latin1 x-user-defined"},
    {Charset::Windows1253, "windows-1253 cp1253 x-cp1253", 1253},
    {Charset::Windows1254,
     "windows-1254 cp1254 x-cp1254 iso-8859-9 iso8859-9 iso88599 iso_8859-9 iso_8859-9:1989 iso-ir-148 "
     "csisolatin5 l5 latin5",
     1254},
    {Charset::Windows1255, "windows-1255 cp1255 x-cp1255", 1255},
    {Charset::Windows1256, "windows-1256 cp1256 x-cp1256", 1256},
    {Charset::Windows1257, "windows-1257 cp1257 x-cp1257", 1257},
    {Charset::Windows1258, "windows-1258 cp1258 x-cp1258", 1258},
    {Charset::Windows874, "windows-874 dos-874 iso-8859-11 iso8859-11 iso885911 tis-620", 874},
    {Charset::Iso8859_2,
     "iso-8859-2 iso8859-2 iso88592 iso_8859-2 iso_8859-2:1987 iso-ir-101 csisolatin2 l2 latin2", 0,
     "ISO-8859-2"},
    {Charset::Iso8859_3,
     "iso-8859-3 iso8859-3 iso88593 iso_8859-3 iso_8859-3:1988 iso-ir-109 csisolatin3 l3 latin3", 0,
     "ISO-8859-3"},
    {Charset::Iso8859_4,
     "iso-8859-4 iso8859-4 iso88594 iso_8859-4 iso_8859-4:1988 iso-ir-110 csisolatin4 l4 latin4", 0,
     "ISO-8859-4"},
    {Charset::Iso8859_5,
     "iso-8859-5 iso8859-5 iso88595 iso_8859-5 iso_8859-5:1988 iso-ir-144 csisolatincyrillic cyrillic", 0,
     "ISO-8859-5"},
    {Charset::Iso8859_6,
     "iso-8859-6 iso8859-6 iso88596 iso_8859-6 iso_8859-6:1987 iso-8859-6-e iso-8859-6-i csiso88596e "
     "csiso88596i iso-ir-127 csisolatinarabic arabic asmo-708 ecma-114",
     0, "ISO-8859-6"},
    {Charset::Iso8859_7,
     "iso-8859-7 iso8859-7 iso88597 iso_8859-7 iso_8859-7:1987 iso-ir-126 csisolatingreek greek greek8 "
     "ecma-118 elot_928 sun_eu_greek",
     0, "ISO-8859-7"},
    {Charset::Iso8859_8,
     "iso-8859-8 iso8859-8 iso88598 iso_8859-8 iso_8859-8:1988 iso-8859-8-e iso-8859-8-i csiso88598e "
     "csiso88598i iso-ir-138 csisolatinhebrew hebrew logical visual",
     0, "ISO-8859-8"},
    {Charset::Iso8859_10, "iso-8859-10 iso8859-10 iso885910 iso-ir-157 csisolatin6 l6 latin6", 0,
     "ISO-8859-10"},
    {Charset::Iso8859_13, "iso-8859-13 iso8859-13 iso885913", 0, "ISO-8859-13"},
    {Charset::Iso8859_14, "iso-8859-14 iso8859-14 iso885914", 0, "ISO-8859-14"},
    {Charset::Iso8859_15, "iso-8859-15 iso8859-15 iso885915 iso_8859-15 csisolatin9 l9", 0, "ISO-8859-15"},
    {Charset::Iso8859_16, "iso-8859-16", 0, "ISO-8859-16"},
    {Charset::Ibm866, "ibm866 866 cp866 csibm866", 0, "IBM866"},
    {Charset::Koi8R, "koi8-r koi8_r koi8 koi cskoi8r", 0, "KOI8-R"},
    {Charset::Koi8U, "koi8-u koi8-ru", 0, "KOI8-U"},
    {Charset::Macintosh, "macintosh mac x-mac-roman csmacintosh", 10000},
    {Charset::MacCyrillic, "x-mac-cyrillic x-mac-ukrainian", 0, "MAC-CYRILLIC"},
    {Charset::ShiftJis, "shift_jis shift-jis sjis x-sjis csshiftjis ms_kanji ms932 windows-31j", 932},
    {Charset::EucJp, "euc-jp x-euc-jp cseucpkdfmtjapanese", 0, "EUC-JP-MS"},
    {Charset::Iso2022Jp, "iso-2022-jp csiso2022jp", 0, "EUC-JP-MS"},
    {Charset::Gbk, "gbk x-gbk gb2312 csgb2312 gb_2312 gb_2312-80 iso-ir-58 csiso58gb231280 chinese", 936},
    {Charset::Gb18030, "gb18030", 0, "GB18030"},
    {Charset::Big5, "big5 csbig5 cn-big5 x-x-big5", 950},
    {Charset::Big5Hkscs, "big5-hkscs", 0, "BIG5-HKSCS"},
    {Charset::EucKr,
     "euc-kr cseuckr ks_c_5601-1987 ks_c_5601-1989 ksc5601 ksc_5601 csksc56011987 iso-ir-149 korean "
     "windows-949",
     949},
};

constexpr char16_t kReplacement = 0xFFFD;
constexpr char kMalformed = '\xFF';  // in EUC-JP

const CharsetRow& RowOf(Charset charset) {
  return *std::find_if(std::begin(kCharsets), std::end(kCharsets),
                       [&](const CharsetRow& row) { return row.charset == charset; });
}

bool HasLabel(const CharsetRow& row, std::string_view label) {
  for (std::string_view labels = row.labels; !labels.empty();) {
    const std::size_t end = std::min(labels.find(' '), labels.size());
    if (labels.substr(0, end) == label) return true;
    labels.remove_prefix(std::min(end + 1, labels.size()));
  }
  return false;
}

/// Decodes by Windows' table, but does not let a lead byte take a byte of ASCII
/// with which it makes no pair: that may be the "<" of the next tag.
Text FromCodePage(int code_page, std::string_view bytes) {
  std::array<bool, 256> leads{};
  for (unsigned byte = 0; byte < leads.size(); ++byte) {
    leads[byte] = IsLeadByte(code_page, static_cast<unsigned char>(byte));
  }
  // What stands for an undefined pair there; 932 has one pair for it too.
  const char16_t undefined = code_page == 932 ? u'\u30FB' : u'?';
  Text text;
  text.reserve(bytes.size());
  std::size_t at = 0;
  for (const char16_t unit : DecodeBytes(code_page, bytes)) {
    const std::string_view pair = bytes.substr(at, 2);
    if (!leads[static_cast<unsigned char>(pair[0])]) {
      text.push_back(unit);
      ++at;
      continue;
    }
    const bool alone = pair.size() < 2 || pair[1] == '\0';
    at += alone ? 1 : 2;
    if (unit != undefined || (code_page == 932 && pair == "\x81\x45")) {
      text.push_back(unit);
    } else {
      text.push_back(kReplacement);
      if (!alone && static_cast<unsigned char>(pair[1]) < 0x80)
        text.push_back(static_cast<char16_t>(pair[1]));
    }
  }
  return text;
}

Text FromLibrary(const CharsetRow& row, std::string_view bytes) {
  constexpr const char* native = std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";
  const iconv_t opened = iconv_open(native, row.converter);
  if (opened == reinterpret_cast<iconv_t>(-1)) {
    throw Failure(Failure::Kind::Raised, 0, "charsets",
                  std::string("the C library has no converter ") + row.converter);
  }
  const std::unique_ptr<void, decltype(&iconv_close)> handle(opened, &iconv_close);
  Text text;
  text.reserve(bytes.size());
  std::array<char16_t, 4096> block{};
  char* source = const_cast<char*>(bytes.data());
  std::size_t left = bytes.size();
  bool flushed = false;
  while (!flushed) {
    // A converter may hold a letter back to join it with a mark after it.
    flushed = left == 0;
    char* target = reinterpret_cast<char*>(block.data());
    std::size_t room = sizeof block;
    const std::size_t result = iconv(opened, flushed ? nullptr : &source, &left, &target, &room);
    const bool malformed = result == static_cast<std::size_t>(-1) && errno != E2BIG;
    text.append(block.data(), block.size() - room / sizeof(char16_t));
    if (malformed && left > 0) {
      text.push_back(kReplacement);
      const std::size_t passed = std::min(row.unit, left);
      source += passed;
      left -= passed;
    }
  }
  return text;
}

/// ISO-2022-JP in the bytes of EUC-JP, which say the same without escapes. The
/// Japanese variant of ASCII is taken for ASCII, as Windows does.
std::string ToEucJp(std::string_view bytes) {
  enum class Set : std::uint8_t { Ascii, Katakana, Kanji, MoreKanji };
  struct Escape {
    std::string_view bytes;
    Set set;
  };
  static constexpr Escape kEscapes[] = {{"\x1B(B", Set::Ascii},    {"\x1B(J", Set::Ascii},
                                        {"\x1B(I", Set::Katakana}, {"\x1B$@", Set::Kanji},
                                        {"\x1B$B", Set::Kanji},    {"\x1B$(D", Set::MoreKanji}};
  const auto is_graphic = [&](std::size_t at) {
    return at < bytes.size() && bytes[at] > ' ' && bytes[at] < '\x7F';
  };
  const auto raised = [&](std::size_t at) { return static_cast<char>(bytes[at] | 0x80); };
  std::string result;
  result.reserve(bytes.size());
  Set set = Set::Ascii;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto* const escape = std::find_if(std::begin(kEscapes), std::end(kEscapes), [&](const Escape& row) {
      return bytes.substr(at).starts_with(row.bytes);
    });
    if (escape != std::end(kEscapes)) {
      set = escape->set;
      at += escape->bytes.size();
    } else if (static_cast<unsigned char>(bytes[at]) >= 0x80) {
      result += kMalformed;
      ++at;
    } else if (set == Set::Ascii || !is_graphic(at)) {
      result += bytes[at++];
    } else if (set == Set::Katakana) {
      result += {'\x8E', raised(at++)};
    } else if (is_graphic(at + 1)) {
      if (set == Set::MoreKanji) result += '\x8F';
      result += {raised(at), raised(at + 1)};
      at += 2;
    } else {
      result += kMalformed;
      ++at;
    }
  }
  return result;
}

}  // namespace

std::optional<Charset> FindCharset(std::string_view label) {
  constexpr std::string_view kSpaces = "\t\n\f\r ";
  const std::size_t first = std::min(label.find_first_not_of(kSpaces), label.size());
  label = label.substr(first, label.find_last_not_of(kSpaces) - first + 1);
  std::string lower(label);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char byte) { return AsciiLower(byte); });
  for (const CharsetRow& row : kCharsets) {
    if (HasLabel(row, lower)) return row.charset;
  }
  return std::nullopt;
}

Text DecodeCharset(Charset charset, std::string_view bytes) {
  const CharsetRow& row = RowOf(charset);
  if (charset == Charset::Utf8) return FromUtf8(bytes);
  if (charset == Charset::Windows1252) return FromWindows1252(bytes);
  if (charset == Charset::Iso2022Jp) return FromLibrary(row, ToEucJp(bytes));
  return row.code_page != 0 ? FromCodePage(row.code_page, bytes) : FromLibrary(row, bytes);
}

}  // namespace quillary::platform
