#include <utility>

#include "html_to_rtf/characters/runs.h"
#include "html_to_rtf/charsets/charsets.h"
#include "html_to_rtf/charsets/cjk_cells.h"

namespace quillary::HTMLRTFConverter {

void DecodeGb2312Run(Text& text) {
  constexpr int kFirstByte = 161;
  Text decoded;
  std::size_t at = 0;
  while (at < text.size()) {
    const int first = AnsiValue(text[at]);
    if (at + 1 == text.size() || first < kFirstByte) {
      decoded += text[at++];
      continue;
    }
    const int second = AnsiValue(text[at + 1]);
    if (second < kFirstByte) {
      decoded.append(text, at, 2);
    } else {
      AppendCell(decoded, kGbTables, first - kFirstByte, second - kFirstByte);
    }
    at += 2;
  }
  text = std::move(decoded);
}

}  // namespace quillary::HTMLRTFConverter
