// The cells of the two decoding tables as RTF.
#pragma once

#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// 94 rows of 94 characters; 0 where none is assigned.
using CjkTable = char16_t[94][94];

/// JIS X 0208 as Windows code page 932 maps it.
extern const CjkTable kJisTable;
/// GB 2312 as Windows code page 936 maps it.
extern const CjkTable kGbTables;

/// Appends the cell; row and column count from 0. One below 0 or above 94 is skipped. Throws
/// Failure (subscript) for 94: the tables end before it.
void AppendCell(Text& to, const CjkTable& table, int row, int column);

}  // namespace quillary::HTMLRTFConverter
