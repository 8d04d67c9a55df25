#include "text/html_elements.h"

#include <algorithm>
#include <iterator>

namespace quillary {
namespace {

using Role = ElementRole;
using Nesting = ElementNesting;

// Terms and their descriptions end with the next one, and a table foot stands
// where a row does, but they nest like inline elements.
constexpr HtmlElement kElements[] = {{"a", Role::Anchor},
                                     {"b", Role::Toggle},
                                     {"big", Role::Step},
                                     {"code", Role::Toggle},
                                     {"em", Role::Toggle},
                                     {"font", Role::Font},
                                     {"i", Role::Toggle},
                                     {"s", Role::Toggle},
                                     {"small", Role::Step},
                                     {"strike", Role::Toggle},
                                     {"strong", Role::Toggle},
                                     {"tt", Role::Toggle},
                                     {"u", Role::Toggle},
                                     {"span", Role::Span},
                                     {"sub", Role::Shift},
                                     {"sup", Role::Shift},
                                     {"p", Role::Item, Nesting::Void},
                                     {"li", Role::Item, Nesting::Void},
                                     {"dt", Role::Item},
                                     {"dd", Role::Item},
                                     {"hr", Role::Line, Nesting::Void},
                                     {"ul", Role::Block, Nesting::List},
                                     {"ol", Role::Block, Nesting::List},
                                     {"dl", Role::Block, Nesting::List},
                                     {"dir", Role::Block, Nesting::List},
                                     {"menu", Role::Block, Nesting::List},
                                     {"div", Role::Block, Nesting::Block},
                                     {"center", Role::Block, Nesting::Block},
                                     {"blockquote", Role::Block, Nesting::Block},
                                     {"form", Role::Block, Nesting::Block},
                                     {"h1", Role::Block, Nesting::Block},
                                     {"h2", Role::Block, Nesting::Block},
                                     {"h3", Role::Block, Nesting::Block},
                                     {"h4", Role::Block, Nesting::Block},
                                     {"h5", Role::Block, Nesting::Block},
                                     {"h6", Role::Block, Nesting::Block},
                                     {"pre", Role::Block, Nesting::Block},
                                     {"body", Role::Block, Nesting::Void},
                                     {"html", Role::Block, Nesting::Void},
                                     {"td", Role::Cell, Nesting::Cell},
                                     {"th", Role::Cell, Nesting::Cell},
                                     {"tr", Role::Row, Nesting::Cell},
                                     {"tbody", Role::Row, Nesting::Cell},
                                     {"thead", Role::Row, Nesting::Cell},
                                     {"tfoot", Role::Row},
                                     {"table", Role::Table, Nesting::Table},
                                     {"br", Role::Content, Nesting::Void},
                                     {"img", Role::Content, Nesting::Void},
                                     {"input", Role::Content, Nesting::Void},
                                     {"title", Role::Raw},
                                     {"script", Role::Raw},
                                     {"style", Role::Raw},
                                     {"textarea", Role::Raw},
                                     {"head", Role::Other, Nesting::Void},
                                     {"meta", Role::Other, Nesting::Void},
                                     {"link", Role::Other, Nesting::Void}};

constexpr HtmlElement kOther;

}  // namespace

const HtmlElement& FindHtmlElement(std::string_view name) {
  const auto* found = std::find_if(std::begin(kElements), std::end(kElements),
                                   [&](const HtmlElement& element) { return element.name == name; });
  return found == std::end(kElements) ? kOther : *found;
}

}  // namespace quillary
