// The steps around the page before its tags are walked: its frame, the state at the
// start, its language and its head.
#pragma once

#include "html_to_rtf/driver/conversion.h"

namespace quillary::HTMLRTFConverter {

/// Supplies the tags of the page and its body that are missing.
void SupplyFrame(Conversion& conversion);
/// A page declared windows-1251 is decoded.
void DecodeCyrillic(Conversion& conversion);

/// Sets the state up and takes the page over into it.
void StartState(Conversion& conversion);
void StartFonts(Conversion& conversion);

/// The base entry of LanguageStack: by the charset, or as the page's own tags say.
void SetBaseLanguage(Conversion& conversion);

void CutHead(Conversion& conversion);

/// Takes the pass limit, and gives the lists of the document their first entries.
void StartBody(Conversion& conversion);

}  // namespace quillary::HTMLRTFConverter
