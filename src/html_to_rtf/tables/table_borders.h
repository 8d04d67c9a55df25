// Borders and shading of tables and cells.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Where a cell stands in its table.
struct CellPlace {
  bool first_cell = false;
  bool last_cell = false;
  bool first_row = false;
  bool last_row = false;
};

/// Takes border widths and colours of a TABLE tag over into the open level. Throws Failure
/// (type, overflow) for a width that is no number; what was read by then stays.
void ParseTableBorders(Apartment& apartment, TextView tag);

/// The border words of a cell; empty if neither it nor its table has a style for them. The
/// colours that the cell names are in ColourList after. Throws as ParseTableBorders.
Text CellBorders(Apartment& apartment, TextView cell_tag, CellPlace place);

/// The shading word of a tag; empty if it has no background.
Text CellShading(Apartment& apartment, TextView tag);

}  // namespace quillary::HTMLRTFConverter
