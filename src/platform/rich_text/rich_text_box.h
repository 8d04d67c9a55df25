// The rich text control: takes any RTF and gives it back in the canonical
// form that the rewrite chains were written for; turns plain text into such a
// document and a document into its plain text.
#pragma once

#include <memory>

#include "text/text.h"

namespace quillary::platform {

class RichTextBox {
 public:
  virtual ~RichTextBox() = default;

  /// Takes a document. Throws Failure (raised) if the control refuses it and
  /// LimitReached if it is beyond a limit.
  virtual void SetTextRTF(TextView rtf) = 0;
  /// The document in canonical RTF; the empty document before anything was set.
  virtual Text TextRTF() const = 0;

  /// Takes a plain text as a document without formatting.
  virtual void SetText(TextView plain) = 0;
  /// The plain text of the document, with CR LF between its paragraphs.
  virtual Text PlainText() const = 0;
};

std::unique_ptr<RichTextBox> MakeRichTextBox();

}  // namespace quillary::platform
