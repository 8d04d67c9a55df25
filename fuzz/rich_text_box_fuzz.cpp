// Any bytes give a document, whose canonical form is read again as itself.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/rich_text/rich_text_box.h"
#include "text/encodings.h"

namespace {

using quillary::Text;
using quillary::platform::MakeRichTextBox;

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Text input = quillary::FromWindows1252(std::string_view(reinterpret_cast<const char*>(data), size));
  const auto box = MakeRichTextBox();
  box->SetTextRTF(input);
  const Text canonical = box->TextRTF();
  static_cast<void>(box->PlainText());
  box->SetTextRTF(canonical);
  Require(box->TextRTF() == canonical);

  box->SetText(input);
  const Text of_plain = box->TextRTF();
  box->SetTextRTF(of_plain);
  Require(box->TextRTF() == of_plain);
  return 0;
}
