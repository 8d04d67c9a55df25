// The elements of HTML: what each is to the text in it, and how it nests.
#pragma once

#include <string_view>

namespace quillary {

/// What an element is to the text in it.
enum class ElementRole {
  Anchor,
  Toggle,  // the same twice is the same once
  Font,
  Span,   // a font that ends with its block
  Step,   // the same twice is more
  Shift,  // that too, and ends with its block
  Block,
  Item,  // a block that ends with the next of its kind
  Line,  // a block without an end
  Cell,
  Row,  // between a table and its cells
  Table,
  Content,  // a thing of its own, formatted like a text
  Raw,      // its content is no markup
  Other
};

/// What is open after its start tag.
enum class ElementNesting {
  Inline,  // the element, which may end across others
  Block,   // the element, and all that is opened in it ends with it
  List,    // a block that gets an item
  Table,   // a block that gets a row and a cell
  Cell,    // a part of a table, which ends the cell before it
  Void     // nothing, or nothing that the next start tag does not end
};

struct HtmlElement {
  std::string_view name;  // in lower case; empty for an element that is not in the table
  ElementRole role = ElementRole::Other;
  ElementNesting nesting = ElementNesting::Inline;
};

/// The element of this lower-case name. The views in it live for ever.
const HtmlElement& FindHtmlElement(std::string_view name);

}  // namespace quillary
