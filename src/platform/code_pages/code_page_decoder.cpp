#include "platform/code_pages/code_page_decoder.h"

#include <algorithm>
#include <array>

#include "platform/code_pages/code_pages.h"
#include "text/ascii.h"
#include "text/failure.h"

namespace quillary::platform {
namespace {

constexpr std::array kCodePages = {874, 932, 936, 949, 950, 1250, 1251, 1253, 1254, 1255, 1256, 1257, 1258};

constexpr std::size_t kEscapeUnits = 4;

/// Whether a whole escape begins at `at`; `byte` is then its byte.
bool ReadEscape(TextView run, std::size_t at, char& byte) {
  if (run.size() - at < kEscapeUnits || run[at] != u'\\' || run[at + 1] != u'\'') return false;
  const int high = HexDigitValue(run[at + 2]);
  const int low = HexDigitValue(run[at + 3]);
  if (high < 0 || low < 0) return false;
  byte = static_cast<char>(high * 16 + low);
  return true;
}

class TableDecoder final : public CodePageDecoder {
 public:
  Text ToString(int code_page, TextView run) override {
    if (!DecodesEscapes(code_page)) throw Failure(Failure::Kind::Argument);
    // A pair is two escapes that touch: text between them ends the bytes.
    Text decoded;
    std::string bytes;
    for (std::size_t at = 0; at < run.size();) {
      char byte = 0;
      bytes.clear();
      while (at < run.size() && ReadEscape(run, at, byte)) {
        bytes.push_back(byte);
        at += kEscapeUnits;
      }
      if (!bytes.empty()) decoded += DecodeBytes(code_page, bytes);
      if (at == run.size()) break;
      const std::size_t next = std::min(run.find(u'\\', at + 1), run.size());
      decoded += run.substr(at, next - at);
      at = next;
    }
    return decoded;
  }
};

}  // namespace

bool DecodesEscapes(int code_page) {
  return std::find(kCodePages.begin(), kCodePages.end(), code_page) != kCodePages.end();
}

std::unique_ptr<CodePageDecoder> MakeCodePageDecoder() { return std::make_unique<TableDecoder>(); }

}  // namespace quillary::platform
