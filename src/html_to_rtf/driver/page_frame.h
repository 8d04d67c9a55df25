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
/// Its charset, and whether a word processor has written it.
void ReadPageKind(Conversion& conversion);
void ReadDefinitions(Conversion& conversion);
void DecodeIso2022Jp(Conversion& conversion);
void StartFonts(Conversion& conversion);
void CollectSheets(Conversion& conversion);

/// The base entry of LanguageStack: by the charset, or as the page's own tags say.
void SetBaseLanguage(Conversion& conversion);

void CutHead(Conversion& conversion);

/// The loop over the tags takes no more passes than the page has units before it is styled.
void TakePassLimit(Conversion& conversion);
void ApplySheets(Conversion& conversion);

/// Gives the lists of the document their first entries.
void StartBody(Conversion& conversion);

}  // namespace quillary::HTMLRTFConverter
