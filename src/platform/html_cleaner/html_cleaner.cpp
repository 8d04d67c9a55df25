// The HTML cleaner on HTML Tidy's library.
#include "platform/html_cleaner/html_cleaner.h"

#include <tidy.h>
#include <tidybuffio.h>

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

#include "platform/html_cleaner/inline_order.h"
#include "platform/html_cleaner/large_stack.h"
#include "platform/html_cleaner/page_bounds.h"
#include "platform/html_cleaner/page_encoding.h"
#include "platform/html_cleaner/tags.h"
#include "text/ascii.h"
#include "text/encodings.h"

namespace quillary::platform {
namespace {

constexpr const char* kHtmlDocumentType = "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 3.2//EN\">";

[[noreturn]] void Refuse(const char* why) { throw Failure(Failure::Kind::Raised, 0, "HTML cleaner", why); }

// A buffer of the library's.
class Buffer {
 public:
  Buffer() { tidyBufInit(&buffer_); }
  Buffer(const Buffer&) = delete;
  Buffer& operator=(const Buffer&) = delete;
  ~Buffer() { tidyBufFree(&buffer_); }

  TidyBuffer* get() { return &buffer_; }
  std::string_view bytes() const { return {reinterpret_cast<const char*>(buffer_.bp), buffer_.size}; }

 private:
  TidyBuffer buffer_{};
};

enum class Form { Html, Xhtml };

// One page on its way through the library.
class Document {
 public:
  explicit Document(Form form) : document_(tidyCreate()) {
    if (document_ == nullptr) Refuse("The HTML library has no memory.");
    tidySetErrorBuffer(document_, messages_.get());
    SetYes(form == Form::Xhtml ? TidyXhtmlOut : TidyHtmlOut);
    SetYes(TidyForceOutput);
    SetYes(TidyQuiet);
    tidyOptSetBool(document_, TidyMark, no);
    // A page that counts as one of the older types gets its stray list content
    // into items, and the entity names that every browser knows.
    tidyOptSetInt(document_, TidyDoctypeMode, TidyDoctypeLoose);
    // Names stay as they were written, but for XML, which has none of them;
    // whatever else is not ASCII becomes a number.
    SetYes(TidyNumEntities);
    // Comments it would write with characters that XML does not allow.
    SetYes(form == Form::Html ? TidyPreserveEntities : TidyHideComments);
    tidyOptSetInt(document_, TidyWrapLen, 68);
    tidyOptSetInt(document_, TidyNewline, TidyLF);
    tidySetCharEncoding(document_, "ascii");
    tidySetInCharEncoding(document_, "win1252");
  }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;
  ~Document() { tidyRelease(document_); }

  void Parse(std::string page) {
    Buffer input;
    tidyBufAppend(input.get(), page.data(), static_cast<uint>(page.size()));
    if (tidyParseBuffer(document_, input.get()) < 0) Refuse("The HTML library cannot read this page.");
  }

  /// Drops the attributes whose names are none in XML without name spaces.
  void DropForeignAttributes() {
    for (TidyNode node = tidyGetRoot(document_); node != nullptr; node = Next(node)) {
      TidyAttr attribute = tidyAttrFirst(node);
      while (attribute != nullptr) {
        const TidyAttr next = tidyAttrNext(attribute);
        const char* name = tidyAttrName(attribute);
        if (name == nullptr || !IsPlainName(name)) tidyAttrDiscard(document_, node, attribute);
        attribute = next;
      }
    }
  }

  void Repair() {
    if (tidyCleanAndRepair(document_) < 0) Refuse("The HTML library cannot repair this page.");
  }

  std::string Write() {
    Buffer output;
    if (tidySaveBuffer(document_, output.get()) < 0) Refuse("The HTML library cannot write this page.");
    return std::string(output.bytes());
  }

 private:
  // The node after this one in the order of the page.
  static TidyNode Next(TidyNode node) {
    if (const TidyNode child = tidyGetChild(node)) return child;
    while (node != nullptr && tidyGetNext(node) == nullptr) node = tidyGetParent(node);
    return node == nullptr ? nullptr : tidyGetNext(node);
  }

  void SetYes(TidyOptionId option) { tidyOptSetBool(document_, option, yes); }

  TidyDoc document_;
  Buffer messages_;
};

// How the library breaks lines is put into the forms that the last pass over
// the page knows. That joins a wrapped attribute after six spaces, or one of
// three by name, and a value after a whole line end; and it looks for breaks
// that stand on a line of their own.
class LineBreaks {
 public:
  explicit LineBreaks(std::string_view page) : page_(page) {}

  std::string Adapted() {
    adapted_.reserve(page_.size());
    for (at_ = 0; at_ < page_.size(); ++at_) {
      if (in_tag_) {
        TakeTagCharacter();
      } else {
        TakeTextCharacter();
      }
    }
    return std::move(adapted_);
  }

 private:
  void TakeTextCharacter() {
    const std::string_view rest = page_.substr(at_);
    if (rest.size() > 1 && rest[0] == '<') {
      in_tag_ = IsAsciiLetter(rest[1]);
      const bool is_break = rest.starts_with("<br>") || rest.starts_with("<br />");
      if (is_break && !after_break_ && !preformatted_ && adapted_.ends_with('>')) adapted_ += '\n';
      if (rest.starts_with("<pre")) preformatted_ = true;
      if (rest.starts_with("</pre>")) preformatted_ = false;
      after_break_ = is_break;
    }
    adapted_ += page_[at_];
  }

  void TakeTagCharacter() {
    const char character = page_[at_];
    if (quote_ != 0) {
      if (character == quote_) quote_ = 0;
    } else if (character == '"' || character == '\'') {
      quote_ = character;
    } else if (character == '>') {
      in_tag_ = false;
    } else if (character == '\n') {
      const std::string_view rest = page_.substr(at_ + 1);
      const bool known = rest.starts_with("color=") || rest.starts_with("size=") || rest.starts_with("src=");
      adapted_ += rest.starts_with('"') ? "\r\n" : known && page_[at_ - 1] == '"' ? "\n" : "\n      ";
      return;
    }
    adapted_ += character;
  }

  std::string_view page_;
  std::string adapted_;
  std::size_t at_ = 0;
  bool in_tag_ = false;
  char quote_ = 0;
  bool after_break_ = false;
  bool preformatted_ = false;
};

// The library names the type that it has in mind; a cleaned page has a fixed one.
void SetDocumentType(std::string& page) {
  const std::size_t start = page.find("<!DOCTYPE");
  const std::size_t end = start == std::string::npos ? start : page.find('>', start);
  if (end == std::string::npos) {
    page.insert(0, std::string(kHtmlDocumentType) + "\n");
  } else {
    page.replace(start, end + 1 - start, kHtmlDocumentType);
  }
}

class TidyCleaner : public HtmlCleaner {
 public:
  Text TidyDLL_CleanHTML(TextView html) override {
    return OnLargeStack([&] {
      Document document(Form::Html);
      document.Parse(Admitted(html));
      document.Repair();
      std::string page = document.Write();
      SetDocumentType(page);
      return LineBreaks(page).Adapted();
    });
  }

  Text TidyDLL_ToXHTML(TextView html) override {
    return OnLargeStack([&] {
      Document document(Form::Xhtml);
      document.Parse(WithoutForeignElements(Admitted(html)));
      document.DropForeignAttributes();
      document.Repair();
      return LineBreaks(document.Write()).Adapted();
    });
  }

  Text TidyDLL_ParseHTML(TextView html) override {
    return OnLargeStack([&] {
      Document document(Form::Html);
      document.Parse(Admitted(html));
      return document.Write();
    });
  }

 private:
  // The library works through nested elements by recursion. While it reads a page
  // it changes its one table of elements, in which an anchor is a block or not,
  // so pages take turns.
  static Text OnLargeStack(const std::function<std::string()>& run) {
    static std::mutex library;
    const std::lock_guard turn(library);
    std::string page;
    RunOnLargeStack([&] { page = run(); });
    return FromWindows1252(page);
  }

  static std::string Admitted(TextView html) {
    std::optional<std::string> page = WithInlinesInOrder(EncodePage(html));
    if (!page || !IsWithinBounds(*page)) Refuse("The page nests too deep.");
    return std::move(*page);
  }
};

}  // namespace

std::unique_ptr<HtmlCleaner> MakeHtmlCleaner() { return std::make_unique<TidyCleaner>(); }

}  // namespace quillary::platform
