// The steps around the text of a document: the state at the start, and the
// page's own tags from head to end.
#pragma once

#include "rtf_to_html/driver/conversion.h"

namespace quillary::modQuillary {

/// Takes the settings over and gives the state its start values. The tables of
/// the document before stay.
void StartState(Conversion& conversion);

/// Writes the debug dump, if the host asked for it.
void DumpSource(Conversion& conversion);

/// Reads the body mode; one that is none becomes "no".
void SetBodyMode(Conversion& conversion);

/// Title and generator; a fragment has no head.
void WriteHead(Conversion& conversion);
/// Leaves the six digits of the colour in the caller's text.
void WriteBodyTag(Conversion& conversion);

void CloseCentreAtEnd(Conversion& conversion);

/// Up to four tables and up to eight fonts that nothing closes are closed;
/// where more are open, none is.
void BalanceTables(rules::Rewriting& page);
void BalanceFonts(rules::Rewriting& page);

/// A fragment has no end tags.
void CloseDocument(Conversion& conversion);

}  // namespace quillary::modQuillary
