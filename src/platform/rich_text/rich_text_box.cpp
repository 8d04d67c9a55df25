#include "platform/rich_text/rich_text_box.h"

#include "platform/rich_text/reader/plain_text_reader.h"
#include "platform/rich_text/reader/rtf_reader.h"
#include "platform/rich_text/writer/canonical_writer.h"
#include "platform/rich_text/writer/plain_text_writer.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::platform {
namespace {

/// Whether a text is RTF, after a byte order mark and space, which are removed.
bool IsRtf(TextView& text) {
  constexpr TextView kByteOrderMark = u"\u00EF\u00BB\u00BF";
  TextView rest = text;
  if (rest.starts_with(kByteOrderMark)) rest.remove_prefix(kByteOrderMark.size());
  if (rest.starts_with(u'\uFEFF')) rest.remove_prefix(1);
  while (!rest.empty() && rest.front() <= u' ') rest.remove_prefix(1);
  if (!rest.starts_with(u"{\\rtf")) return false;
  text = rest;
  return true;
}

void CheckLimit(TextView text) {
  if (text.size() > limits::kInputUnits) throw LimitReached(LimitReached::Limit::Input);
}

class RtfTextBox final : public RichTextBox {
 public:
  void SetTextRTF(TextView rtf) override {
    CheckLimit(rtf);
    document_ = IsRtf(rtf) ? rtf::ReadRtf(rtf) : rtf::ReadPlainText(rtf);
  }
  Text TextRTF() const override { return rtf::WriteCanonical(document_); }

  void SetText(TextView plain) override {
    CheckLimit(plain);
    document_ = rtf::ReadPlainText(plain);
  }
  Text PlainText() const override { return rtf::WritePlainText(document_); }

 private:
  rtf::Document document_ = rtf::ReadPlainText({});
};

}  // namespace

std::unique_ptr<RichTextBox> MakeRichTextBox() { return std::make_unique<RtfTextBox>(); }

}  // namespace quillary::platform
