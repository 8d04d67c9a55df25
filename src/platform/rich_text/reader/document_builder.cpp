#include "platform/rich_text/reader/document_builder.h"

#include <algorithm>

#include "platform/rich_text/model/structure_formats.h"

namespace quillary::platform::rtf {

void DocumentBuilder::UseFormat(std::uint32_t format) {
  if (document_.runs.empty() || document_.runs.back().format != format) {
    if (!document_.runs.empty() && document_.runs.back().begin == document_.text.size()) {
      document_.runs.back().format = format;
    } else {
      document_.runs.push_back({document_.text.size(), format});
    }
  }
}

void DocumentBuilder::AddText(TextView text, std::uint32_t format) {
  UseFormat(format);
  document_.text.append(text);
}

void DocumentBuilder::AddUnit(char16_t unit, std::uint32_t format) {
  UseFormat(format);
  document_.text.push_back(unit);
}

void DocumentBuilder::PutParagraph(const ParagraphEnd& paragraph) {
  document_.paragraphs.push_back({document_.text.size(), document_.formats.Id(paragraph.format),
                                  paragraph.label, paragraph.stray_bullet});
  paragraph_begin_ = document_.text.size();
}

void DocumentBuilder::OpenRow() {
  row_open_ = true;
  row_begin_ = paragraph_begin_;
  cell_begin_ = paragraph_begin_;
  row_first_paragraph_ = document_.paragraphs.size();
  row_cells_ = 0;
  row_said_in_table_ = false;
  row_has_format_ = false;
}

void DocumentBuilder::EndParagraph(const ParagraphEnd& paragraph, std::uint32_t format) {
  if (paragraph.in_table) {
    any_said_in_table_ = true;
    if (!row_open_) OpenRow();
    row_said_in_table_ = true;
  } else if (row_open_ && row_cells_ > 0 && row_said_in_table_) {
    // The row was never ended: what stands after its last cell is no part of it.
    InsertRowEnd(paragraph_begin_);
  } else if (row_open_ && row_cells_ == 0 && any_said_in_table_) {
    row_open_ = false;
  }
  if (row_open_ && !row_has_format_) {
    row_format_ = paragraph.format;
    row_has_format_ = true;
  }
  AddUnit(structure::kParagraph, format);
  PutParagraph(paragraph);
}

void DocumentBuilder::BeginRow() {
  if (!row_open_) OpenRow();
}

void DocumentBuilder::EndCell(const ParagraphEnd& paragraph, std::uint32_t format) {
  if (!row_open_) OpenRow();
  if (paragraph.in_table) {
    row_said_in_table_ = true;
    any_said_in_table_ = true;
  }
  if (!row_has_format_) {
    row_format_ = paragraph.format;
    row_has_format_ = true;
  }
  if (nested_row_end_ == document_.text.size() && !ParagraphIsEmpty()) {
    document_.text.pop_back();  // the line break after the last nested row
    if (document_.runs.back().begin > document_.text.size()) document_.runs.pop_back();
  }
  AddUnit(structure::kCell, format);
  ++row_cells_;
  paragraph_begin_ = document_.text.size();
  cell_begin_ = paragraph_begin_;
}

void DocumentBuilder::EndRow(const ParagraphEnd& paragraph, std::uint32_t format) {
  if (!row_open_) {
    if (ParagraphIsEmpty()) return;
    OpenRow();
  }
  if (End() > cell_begin_) EndCell(paragraph, format);
  if (row_cells_ == 0) {
    row_open_ = false;
    return;
  }
  AddUnit(structure::kRow, format);
  PutRow();
}

/// Makes the paragraphs since the beginning of the row one row.
void DocumentBuilder::PutRow() {
  document_.paragraphs.resize(row_first_paragraph_);
  const auto begin = document_.text.begin() + static_cast<std::ptrdiff_t>(row_begin_);
  std::replace(begin, document_.text.end(), structure::kParagraph, structure::kLine);
  row_format_.row = document_.RowId(row_words_.Words());
  row_format_.list = 0;
  ParagraphEnd row{.format = row_format_, .in_table = true};
  PutParagraph(row);
  row_words_.EndRow();
  row_open_ = false;
}

void DocumentBuilder::EndNestedRow(std::uint32_t format) {
  AddUnit(structure::kLine, format);
  nested_row_end_ = document_.text.size();
}

/// Ends the open row at `at`, which lies in front of the paragraph that is
/// being read.
void DocumentBuilder::InsertRowEnd(std::size_t at) {
  const Text after = document_.text.substr(at);
  std::vector<Run> runs_after;
  while (!document_.runs.empty() && document_.runs.back().begin > at) {
    runs_after.push_back(document_.runs.back());
    document_.runs.pop_back();
  }
  const std::uint32_t format = LastFormat();
  document_.text.resize(at);
  if (at > cell_begin_) AddUnit(structure::kCell, format);
  AddUnit(structure::kRow, format);
  PutRow();
  const std::size_t inserted = End() - at;
  document_.text += after;
  for (auto run = runs_after.rbegin(); run != runs_after.rend(); ++run) {
    document_.runs.push_back({run->begin + inserted, run->format});
  }
}

void DocumentBuilder::Finish(const ParagraphEnd& paragraph, std::uint32_t format) {
  if (row_open_ && row_cells_ > 0) {
    if (!ParagraphIsEmpty() && !paragraph.in_table) {
      InsertRowEnd(paragraph_begin_);
    } else {
      EndRow(paragraph, LastFormat());
    }
  }
  row_open_ = false;
  const bool ends_in_row =
      !document_.paragraphs.empty() && document_.formats[document_.paragraphs.back().format].row != 0;
  if (document_.paragraphs.empty() || ends_in_row || !ParagraphIsEmpty()) {
    ParagraphEnd last = paragraph;
    last.in_table = false;
    EndParagraph(last, document_.runs.empty() ? format : LastFormat());
  }
  ChooseStructureFormats(document_);
}

}  // namespace quillary::platform::rtf
