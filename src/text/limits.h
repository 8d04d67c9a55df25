// Every limit of a conversion, in one place. Passing one throws LimitReached.
#pragma once

#include <cstddef>

namespace quillary::limits {

/// Longest input text, in units.
inline constexpr std::size_t kInputUnits = std::size_t{256} << 20;

/// Longest text under rewriting, in units.
inline constexpr std::size_t kWorkingUnits = std::size_t{512} << 20;

/// Tables within tables of a page.
inline constexpr int kTableNesting = 500;

/// Cells that are put below ROWSPANs where a cell counts for two rows: such pages may have no end.
inline constexpr int kSharedMergedCells = 2000;

/// Bytes of a linked style sheet: a longer one reads as empty.
inline constexpr std::size_t kStyleSheetBytes = std::size_t{64} << 20;

/// Style sheets that a page may link to.
inline constexpr int kLinkedStyleSheets = 1000;

/// Elements that are styled in a page whose tags stand inside each other, each at the cost of
/// a pass over the page.
inline constexpr int kStyledInsideTags = 20000;

/// Bytes of the file of a picture: one with more cannot be read.
inline constexpr std::size_t kPictureFileBytes = std::size_t{64} << 20;

/// Units of all pictures of an RTF document that is made of a page.
inline constexpr std::size_t kPictureUnits = std::size_t{256} << 20;

/// Files that the pictures of a document are written to. No page shows so many.
inline constexpr int kPictures = 10000;

/// Pixels of a picture, of one that is drawn or plain, and of all pictures of a document. Beyond them
/// a picture becomes a plain one.
inline constexpr std::size_t kPicturePixels = std::size_t{32} << 20;
inline constexpr std::size_t kDrawnPixels = std::size_t{4} << 20;
inline constexpr std::size_t kPicturePixelsOfDocument = std::size_t{256} << 20;

/// Records of a metafile, and the pixels that those of a document may paint over each other.
inline constexpr std::size_t kMetafileRecords = 200000;
inline constexpr double kPaintedPixels = 2e9;

/// A download takes no more seconds, and follows no more redirections.
inline constexpr int kFetchSeconds = 30;
inline constexpr int kFetchRedirections = 5;

/// A text may grow to this many times the input, or to this many units,
/// whichever is more.
inline constexpr std::size_t kGrowthFactor = 256;
inline constexpr std::size_t kGrowthFloorUnits = std::size_t{16} << 20;

}  // namespace quillary::limits
