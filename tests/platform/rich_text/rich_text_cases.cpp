#include "platform/rich_text/rich_text_cases.h"

#include <gtest/gtest.h>

#include "platform/rich_text/rich_text_box.h"
#include "text/encodings.h"

namespace quillary::platform {
std::string Canonical(const Text& rtf) {
  const auto box = MakeRichTextBox();
  box->SetTextRTF(rtf);
  return ToUtf8(box->TextRTF());
}

std::string Canonical(std::string_view rtf) { return Canonical(FromWindows1252(rtf)); }

std::string Plain(std::string_view rtf) {
  const auto box = MakeRichTextBox();
  box->SetTextRTF(FromWindows1252(rtf));
  return ToUtf8(box->PlainText());
}

std::string Body(std::string_view rtf) {
  const std::string canonical = Canonical(rtf);
  constexpr std::string_view kStart = "\\viewkind4\\uc1";
  constexpr std::string_view kEnd = "\r\n\\par }";
  const std::size_t start = canonical.find(kStart) + kStart.size();
  EXPECT_TRUE(canonical.ends_with(kEnd)) << canonical;
  return canonical.substr(start, canonical.size() - start - kEnd.size());
}

std::string Header(std::string_view rtf) {
  const std::string canonical = Canonical(rtf);
  return canonical.substr(0, canonical.find("\\viewkind4"));
}

std::string Document(std::string_view body) {
  return std::string(
             "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 "
             "Arial;}{\\f1\\froman\\fcharset0 "
             "Times New Roman;}{\\f2\\fnil\\fcharset2 Symbol;}{\\f3\\fnil\\fcharset2 Wingdings;}}{\\colortbl "
             ";\\red255\\green0\\blue0;\\red0\\green255\\blue0;\\red0\\green0\\blue255;}") +
         std::string(body) + "}";
}

void CheckBodies(const std::vector<Case>& cases) {
  for (const Case& each : cases) {
    EXPECT_EQ(Body(each.rtf), each.expected) << each.what;
    EXPECT_EQ(Canonical(FromUtf8(Canonical(each.rtf))), Canonical(each.rtf)) << each.what << ", once more";
  }
}

void CheckTexts(const std::vector<Case>& cases) {
  for (const Case& each : cases) EXPECT_EQ(Plain(each.rtf), each.expected) << each.what;
}

}  // namespace quillary::platform
