#include "text/case_folding.h"

#include <cstdint>
#include <map>
#include <memory>

namespace quillary {
namespace {

struct CaseRun {
  std::uint16_t first;
  std::uint16_t last;
  std::uint16_t step;
  std::int32_t delta;
};

#include "text/case_tables.inc"

using UnitTable = std::array<char16_t, 0x10000>;

template <std::size_t count>
std::unique_ptr<const UnitTable> Expand(const CaseRun (&runs)[count]) {
  auto table = std::make_unique<UnitTable>();
  for (std::uint32_t unit = 0; unit < table->size(); ++unit) (*table)[unit] = static_cast<char16_t>(unit);
  for (const CaseRun& run : runs) {
    for (std::uint32_t unit = run.first; unit <= run.last; unit += run.step) {
      (*table)[unit] = static_cast<char16_t>(static_cast<std::int32_t>(unit) + run.delta);
    }
  }
  return table;
}

const UnitTable& Fold() {
  static const std::unique_ptr<const UnitTable> table = Expand(kFoldRuns);
  return *table;
}

using Variants = std::map<char16_t, std::array<char16_t, 4>>;

// For every unit that something else folds to: all units of its class.
const Variants& VariantTable() {
  static const Variants table = [] {
    std::map<char16_t, std::u16string> classes;
    for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
      const char16_t folded = Fold()[unit];
      if (folded != unit) classes[folded] += static_cast<char16_t>(unit);
    }
    Variants result;
    for (const auto& [folded, others] : classes) {
      std::array<char16_t, 4> variants;
      variants.fill(folded);
      for (std::size_t i = 0; i < others.size() && i < 3; ++i) variants[i + 1] = others[i];
      result[folded] = variants;
    }
    return result;
  }();
  return table;
}

}  // namespace

char16_t FoldUnit(char16_t unit) { return Fold()[unit]; }

char16_t UpperUnit(char16_t unit) {
  static const std::unique_ptr<const UnitTable> table = Expand(kUpperRuns);
  return (*table)[unit];
}

char16_t LowerUnit(char16_t unit) {
  static const std::unique_ptr<const UnitTable> table = Expand(kLowerRuns);
  return (*table)[unit];
}

std::array<char16_t, 4> FoldVariants(char16_t unit) {
  const char16_t folded = FoldUnit(unit);
  const auto found = VariantTable().find(folded);
  if (found != VariantTable().end()) return found->second;
  std::array<char16_t, 4> alone;
  alone.fill(folded);
  return alone;
}

const char16_t* FoldTable() { return Fold().data(); }

}  // namespace quillary
