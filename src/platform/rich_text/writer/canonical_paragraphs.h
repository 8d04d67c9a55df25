// The words of paragraphs in a canonical document, and where they stand.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/writer/canonical_tables.h"

namespace quillary::platform::rtf {

void AppendNumber(Text& words, TextView word, std::int32_t number);

/// Whether the paragraph from `begin` up to `end` begins with a bullet, a dash
/// or the like and a tab that its author typed.
bool IsTypedItem(const Document& document, std::size_t begin, std::size_t end);

/// The words of a paragraph format, which stand after "\pard" and the list.
Text ParagraphWords(const Document& document, const ParagraphFormat& format, bool is_item);

/// For each paragraph whether its format is written otherwise than that of the
/// paragraph before, so that it needs a "\pard". Formats also differ in what
/// is not written: a "\pard" for that would be gone when the text is read
/// again. Asks the tables for the numbers of bullet fonts only.
std::vector<bool> FindFormatChanges(const Document& document, const CanonicalTables& tables);

}  // namespace quillary::platform::rtf
