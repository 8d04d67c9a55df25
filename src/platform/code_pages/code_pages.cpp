#include "platform/code_pages/code_pages.h"

#include <iconv.h>

#include <array>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/code_pages/code_page_differences.h"
#include "text/failure.h"

namespace quillary::platform {
namespace {

struct LeadRange {
  unsigned char first = 1;
  unsigned char last = 0;
};

struct CodePage {
  int number;
  const char* iconv_name;
  std::array<LeadRange, 3> leads{};
  char16_t undefined_pair = 0;

  bool IsLead(unsigned char byte) const {
    for (const LeadRange& range : leads) {
      if (byte >= range.first && byte <= range.last) return true;
    }
    return false;
  }
};

constexpr CodePage kCodePages[] = {
    {437, "CP437"},
    {850, "CP850"},
    {874, "CP874"},
    {932, "CP932", {{{0x81, 0x9F}, {0xE0, 0xFC}, {}}}, u'\u30FB'},
    {936, "CP936", {{{0x81, 0xFE}, {}, {}}}, u'?'},
    {949, "CP949", {{{0x81, 0xFE}, {}, {}}}, u'?'},
    {950, "CP950", {{{0x81, 0xFE}, {}, {}}}, u'?'},
    {1250, "CP1250"},
    {1251, "CP1251"},
    {1252, "CP1252"},
    {1253, "CP1253"},
    {1254, "CP1254"},
    {1255, "CP1255"},
    {1256, "CP1256"},
    {1257, "CP1257"},
    {1258, "CP1258"},
    {1361, "JOHAB", {{{0x84, 0xD3}, {0xD8, 0xDE}, {0xE0, 0xF9}}}, u'?'},
    {10000, "MACINTOSH"},
};

struct CharsetCodePage {
  int charset;
  int code_page;
};

constexpr CharsetCodePage kCharsetCodePages[] = {
    {77, 10000}, {128, 932},  {129, 949},  {130, 1361}, {134, 936},  {136, 950},  {161, 1253},
    {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {179, 1256}, {180, 1256}, {181, 1255},
    {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850},
};

const CodePage* FindCodePage(int number) {
  for (const CodePage& page : kCodePages) {
    if (page.number == number) return &page;
  }
  return nullptr;
}

/// One code page, ready to be looked up.
struct Table {
  std::array<char16_t, 256> single{};   // by byte
  std::array<std::uint8_t, 256> row{};  // by lead byte: its row of pairs, from 1; 0 for no lead byte
  std::vector<char16_t> pairs;          // 256 units for each row
  char16_t undefined_pair = 0;

  char16_t& Pair(unsigned char lead, unsigned char trail) {
    return pairs[(row[lead] - std::size_t{1}) * 256 + trail];
  }
};

/// The C library's converter for one code page.
class Converter {
 public:
  explicit Converter(const char* name) : handle_(iconv_open("UTF-16LE", name)) {
    if (handle_ == reinterpret_cast<iconv_t>(-1)) {
      throw Failure(Failure::Kind::Raised, 0, "code pages",
                    std::string("the C library has no converter ") + name);
    }
  }
  ~Converter() { iconv_close(handle_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  /// The one unit that these bytes stand for, if there is one. The converters
  /// of Hebrew and Vietnamese hold a letter back to join it with
  /// its combining marks, so each question ends with a flush.
  std::optional<char16_t> Unit(unsigned char first, std::optional<unsigned char> second = std::nullopt) {
    std::array<char, 2> in = {static_cast<char>(first), static_cast<char>(second.value_or(0))};
    std::array<unsigned char, 16> out{};
    char* source = in.data();
    char* target = reinterpret_cast<char*>(out.data());
    std::size_t source_left = second ? 2 : 1;
    std::size_t target_left = out.size();
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(handle_, &source, &source_left, &target, &target_left) == static_cast<std::size_t>(-1) ||
        iconv(handle_, nullptr, nullptr, &target, &target_left) == static_cast<std::size_t>(-1) ||
        source_left != 0 || out.size() - target_left != 2) {
      return std::nullopt;
    }
    return static_cast<char16_t>(out[0] | (out[1] << 8));
  }

 private:
  iconv_t handle_;
};

void MendPairs(Table& table, const PairDifference& difference) {
  char16_t unit = difference.unit;
  for (unsigned lead = difference.first_lead; lead <= difference.last_lead; ++lead) {
    for (unsigned trail = difference.first_trail; trail <= difference.last_trail; ++trail) {
      if (trail >= difference.skip_first && trail <= difference.skip_last) continue;
      table.Pair(static_cast<unsigned char>(lead), static_cast<unsigned char>(trail)) = unit++;
    }
  }
}

std::unique_ptr<const Table> BuildTable(const CodePage& page) {
  auto table = std::make_unique<Table>();
  Converter converter(page.iconv_name);
  table->undefined_pair = page.undefined_pair;
  std::uint8_t rows = 0;
  for (unsigned value = 0; value < 256; ++value) {
    const auto byte = static_cast<unsigned char>(value);
    if (page.IsLead(byte)) {
      table->single[byte] = page.undefined_pair;  // a lead byte that nothing follows
      table->row[byte] = ++rows;
      table->pairs.resize(std::size_t{rows} * 256, page.undefined_pair);
      for (unsigned trail = 1; trail < 256; ++trail) {
        const auto second = static_cast<unsigned char>(trail);
        table->Pair(byte, second) = converter.Unit(byte, second).value_or(page.undefined_pair);
      }
    } else {
      table->single[byte] = converter.Unit(byte).value_or(byte);
    }
  }
  for (const ByteDifference& difference : ByteDifferences()) {
    if (difference.code_page != page.number) continue;
    for (unsigned byte = difference.first; byte <= difference.last; ++byte) {
      table->single[byte] = static_cast<char16_t>(difference.unit + (byte - difference.first));
    }
  }
  for (const PairDifference& difference : PairDifferences()) {
    if (difference.code_page == page.number) MendPairs(*table, difference);
  }
  return table;
}

/// The table of a code page, built when it is first asked for and never changed.
const Table& TableOf(const CodePage& page) {
  struct Slot {
    std::once_flag once;
    std::unique_ptr<const Table> table;
  };
  static std::array<Slot, std::size(kCodePages)> slots;
  Slot& slot = slots[static_cast<std::size_t>(&page - kCodePages)];
  std::call_once(slot.once, [&] { slot.table = BuildTable(page); });
  return *slot.table;
}

}  // namespace

bool IsKnownCodePage(int code_page) { return FindCodePage(code_page) != nullptr; }

int CodePageOfCharset(int charset) {
  for (const CharsetCodePage& row : kCharsetCodePages) {
    if (row.charset == charset) return row.code_page;
  }
  return 0;
}

bool IsLeadByte(int code_page, unsigned char byte) {
  const CodePage* page = FindCodePage(code_page);
  return page != nullptr && page->IsLead(byte);
}

Text DecodeBytes(int code_page, std::string_view bytes) {
  const CodePage* page = FindCodePage(code_page);
  if (page == nullptr) throw Failure(Failure::Kind::Argument);
  const Table& table = TableOf(*page);
  Text text(bytes.size(), u'\0');
  std::size_t length = 0;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const auto byte = static_cast<unsigned char>(bytes[at]);
    const std::uint8_t row = table.row[byte];
    if (row != 0 && at + 1 < bytes.size() && bytes[at + 1] != '\0') {
      const auto trail = static_cast<unsigned char>(bytes[++at]);
      text[length++] = table.pairs[(row - std::size_t{1}) * 256 + trail];
    } else {
      text[length++] = table.single[byte];
    }
  }
  text.resize(length);
  return text;
}

}  // namespace quillary::platform
