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

/// The row that is open; a new one if there is none.
DocumentBuilder::Row& DocumentBuilder::OpenRow() {
  if (!row_) {
    row_ = Row{.begin = paragraph_begin_,
               .first_paragraph = document_.paragraphs.size(),
               .cells = 0,
               .cell_begin = paragraph_begin_,
               .in_table = false,
               .format = {}};
  }
  return *row_;
}

void DocumentBuilder::EndParagraph(const ParagraphEnd& paragraph, std::uint32_t format) {
  if (paragraph.in_table) {
    any_in_table_ = true;
    OpenRow().in_table = true;
  } else if (row_ && row_->cells > 0 && row_->in_table) {
    // The row was never ended: what stands after its last cell is no part of it.
    InsertRowEnd(paragraph_begin_);
  } else if (row_ && row_->cells == 0 && any_in_table_) {
    row_.reset();
  }
  if (row_ && !row_->format) row_->format = paragraph.format;
  AddUnit(structure::kParagraph, format);
  PutParagraph(paragraph);
}

void DocumentBuilder::BeginRow() { OpenRow(); }

void DocumentBuilder::EndCell(const ParagraphEnd& paragraph, std::uint32_t format) {
  Row& row = OpenRow();
  if (paragraph.in_table) {
    row.in_table = true;
    any_in_table_ = true;
  }
  if (!row.format) row.format = paragraph.format;
  if (nested_row_end_ == document_.text.size() && !ParagraphIsEmpty()) {
    document_.text.pop_back();  // the line break after the last nested row
    if (document_.runs.back().begin > document_.text.size()) document_.runs.pop_back();
  }
  AddUnit(structure::kCell, format);
  ++row.cells;
  paragraph_begin_ = document_.text.size();
  row.cell_begin = paragraph_begin_;
}

void DocumentBuilder::EndRow(const ParagraphEnd& paragraph, std::uint32_t format) {
  if (!row_ && ParagraphIsEmpty()) return;
  const Row& row = OpenRow();
  if (document_.text.size() > row.cell_begin) EndCell(paragraph, format);
  if (row.cells == 0) {
    row_.reset();
    return;
  }
  AddUnit(structure::kRow, format);
  PutRow();
}

/// Makes the paragraphs since the beginning of the row one row.
void DocumentBuilder::PutRow() {
  document_.paragraphs.resize(row_->first_paragraph);
  const auto begin = document_.text.begin() + static_cast<std::ptrdiff_t>(row_->begin);
  std::replace(begin, document_.text.end(), structure::kParagraph, structure::kLine);
  ParagraphEnd end{.format = row_->format.value_or(ParagraphFormat{})};
  end.format.row = document_.RowId(row_words_.Words());
  end.format.list = 0;
  PutParagraph(end);
  row_words_.EndRow();
  row_.reset();
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
  if (at > row_->cell_begin) AddUnit(structure::kCell, format);
  AddUnit(structure::kRow, format);
  PutRow();
  const std::size_t inserted = document_.text.size() - at;
  document_.text += after;
  for (auto run = runs_after.rbegin(); run != runs_after.rend(); ++run) {
    document_.runs.push_back({run->begin + inserted, run->format});
  }
}

void DocumentBuilder::Finish(const ParagraphEnd& paragraph, std::uint32_t format) {
  if (row_ && row_->cells > 0) {
    if (!ParagraphIsEmpty() && !paragraph.in_table) {
      InsertRowEnd(paragraph_begin_);
    } else {
      EndRow(paragraph, LastFormat());
    }
  }
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
