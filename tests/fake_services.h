// Stand-ins for what comes from outside, so that a test sees what is asked of it.
#pragma once

#include <string>
#include <vector>

#include "apartment/apartment.h"

namespace quillary::testing {

/// Gives RTF back as it came, or refuses it.
class FakeControl final : public platform::RichTextBox {
 public:
  explicit FakeControl(bool refuses) : refuses_(refuses) {}
  void SetTextRTF(TextView rtf) override {
    if (refuses_) throw Failure(Failure::Kind::Raised, 7, "control", "refused");
    rtf_ = rtf;
  }
  Text TextRTF() const override { return rtf_; }
  void SetText(TextView plain) override { SetTextRTF(u"{\\rtf1\\plain\\fs20 " + Text(plain) + u"}"); }
  Text PlainText() const override { return u"plain:" + rtf_; }

 private:
  bool refuses_;
  Text rtf_;
};

class FakeCleaner final : public platform::HtmlCleaner {
 public:
  explicit FakeCleaner(Text page) : page_(std::move(page)) {}
  Text TidyDLL_CleanHTML(TextView) override { return u"clean" + page_; }
  Text TidyDLL_ToXHTML(TextView) override { return u"xhtml" + page_; }
  Text TidyDLL_ParseHTML(TextView html) override { return Text(html); }

 private:
  Text page_;
};

class FakeDiagnostics final : public platform::Diagnostics {
 public:
  void Message(TextView words) override { messages.emplace_back(words); }
  void WriteDump(TextView text) override {
    if (fails) throw Failure(Failure::Kind::Raised);
    dumps.emplace_back(text);
  }
  bool fails = false;
  std::vector<Text> messages;
  std::vector<Text> dumps;
};

/// Takes every picture and writes no file.
class SilentExtractor final : public platform::PictureExtractor {
 public:
  std::int32_t Parse(TextView, TextView, std::int16_t, std::int16_t, std::int16_t, std::int16_t,
                     TextView) override {
    return 0;
  }
};

inline platform::Services ControlOnly(bool refuses = false) {
  platform::Services services;
  services.rich_text_box = [refuses] { return std::make_unique<FakeControl>(refuses); };
  return services;
}

}  // namespace quillary::testing
