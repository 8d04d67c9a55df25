// Where markup begins and ends in a page, as browsers see it.
#pragma once

#include <cstddef>

#include "text/text.h"

namespace quillary::page_reader {

struct Attribute {
  TextView name;
  TextView value;  // without its quotes; empty if there is none
};

/// The name of the tag whose "<" stands at `at`, with the "/" of an end tag in
/// front; empty if no tag begins there.
TextView TagName(TextView page, std::size_t at);

/// Reads the next attribute of a tag and moves `at` after it. False if there is
/// none; `at` is after the tag then, or at the end of a page that leaves the tag
/// open.
bool ReadAttribute(TextView page, std::size_t& at, Attribute& attribute);

/// Where the tag, comment or declaration whose "<" stands at `at` is over: the
/// end of the page if it is left open, `at` itself if the "<" is text.
std::size_t MarkupEnd(TextView page, std::size_t at);

/// Where the content that follows the tag `name` is over, when it is a script
/// or a style sheet: `at` itself for the tags of all other elements.
std::size_t RawContentEnd(TextView page, std::size_t at, TextView name);

}  // namespace quillary::page_reader
