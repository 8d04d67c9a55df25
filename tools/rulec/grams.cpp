#include "grams.h"

#include <algorithm>
#include <map>

#include "rules/grams.h"
#include "text/case_folding.h"

namespace quillary::rulec {
namespace {

constexpr std::size_t kMostGrams = 10;
constexpr std::size_t kSmallestBlock = 4;

// A shared run that tells less than this ("\\par") is in every text.
constexpr int kTelling = 10;

struct Gram {
  std::size_t offset = 0;
  std::uint32_t hash = 0;
  int rarity = 0;
};

// How much a unit tells, roughly: letters little, digits and punctuation more.
int Rarity(char16_t folded) {
  if (folded >= 0x80) return 8;
  if (folded == u' ' || folded == u'\\') return 1;
  if (folded >= u'a' && folded <= u'z') return 2;
  return folded >= u'0' && folded <= u'9' ? 4 : 5;
}

Text Folded(TextView find) {
  Text folded(find);
  for (char16_t& unit : folded) unit = FoldUnit(unit);
  return folded;
}

// All runs of a find text, the most telling first.
std::vector<Gram> GramsOf(TextView find) {
  const Text folded = Folded(find);
  std::vector<Gram> grams;
  const std::size_t length = rules::GramLength(folded.size());
  if (length == 0) return grams;
  for (std::size_t i = 0; i + length <= folded.size(); ++i) {
    Gram gram{i, rules::GramHash(folded.data() + i, length), 0};
    for (std::size_t k = i; k < i + length; ++k) gram.rarity += Rarity(folded[k]);
    grams.push_back(gram);
  }
  std::stable_sort(grams.begin(), grams.end(),
                   [](const Gram& left, const Gram& right) { return left.rarity > right.rarity; });
  return grams;
}

// Which of the runs of the first rule all rules up to `end` have too.
class Shared {
 public:
  explicit Shared(TextView find) : grams_(GramsOf(find)) { Forget(); }

  /// Keeps what this find text has too, unless that leaves nothing.
  bool Narrow(TextView find) {
    std::vector<Gram> left;
    const std::vector<Gram> others = GramsOf(find);
    for (const Gram& gram : grams_) {
      const bool both = std::any_of(others.begin(), others.end(),
                                    [&](const Gram& other) { return other.hash == gram.hash; });
      if (both) left.push_back(gram);
    }
    if (left.empty()) return false;
    grams_ = std::move(left);
    return true;
  }
  // Leaves only what tells something.
  void Forget() {
    std::erase_if(grams_, [](const Gram& gram) { return gram.rarity < kTelling; });
  }
  bool any() const { return !grams_.empty(); }
  std::uint32_t best() const { return grams_.front().hash; }

 private:
  std::vector<Gram> grams_;
};

// Cuts one part of rules; the pieces go after `parts`.
void Cut(const FlatPart& part, const std::vector<FlatRule>& rules, std::vector<FlatPart>& parts) {
  const std::size_t last = part.first + part.count;
  FlatPart open = part;  // rules that share nothing with their neighbours
  open.count = 0;
  const auto close = [&] {
    if (open.count > 0) parts.push_back(open);
    open.count = 0;
  };
  for (std::size_t at = part.first; at < last;) {
    Shared shared(rules[at].find);
    std::size_t end = at + 1;
    while (shared.any() && end < last && shared.Narrow(rules[end].find)) ++end;
    if (shared.any() && end - at >= kSmallestBlock && shared.best() != 0) {
      close();
      FlatPart block = part;
      block.first = at;
      block.count = end - at;
      block.gram = shared.best();
      parts.push_back(block);
      at = end;
    } else {
      if (open.count == 0) open.first = at;
      ++open.count;
      ++at;
    }
  }
  close();
}

}  // namespace

std::vector<std::uint32_t> TellingGrams(TextView find) {
  std::vector<Gram> chosen;
  // Runs that hardly overlap first, then whatever is left.
  for (const std::size_t distance : {std::size_t{2}, std::size_t{1}}) {
    for (const Gram& gram : GramsOf(find)) {
      const bool apart = std::all_of(chosen.begin(), chosen.end(), [&](const Gram& other) {
        return std::max(gram.offset, other.offset) - std::min(gram.offset, other.offset) >= distance;
      });
      if (apart && chosen.size() < kMostGrams) chosen.push_back(gram);
    }
  }
  std::vector<std::uint32_t> hashes;
  hashes.reserve(chosen.size());
  for (const Gram& gram : chosen) hashes.push_back(gram.hash);
  return hashes;
}

void CutIntoBlocks(FlatChain& chain) {
  std::vector<FlatPart> parts;
  std::map<std::size_t, std::size_t> moved;  // where a part of before begins now
  for (std::size_t i = 0; i < chain.parts.size(); ++i) {
    moved[i] = parts.size();
    if (chain.parts[i].kind == FlatPart::Kind::Rules) {
      Cut(chain.parts[i], chain.rules, parts);
    } else {
      parts.push_back(chain.parts[i]);
    }
  }
  moved[chain.parts.size()] = parts.size();
  for (FlatPart& part : parts) {
    if (part.kind == FlatPart::Kind::Guard) part.skip = moved[part.skip];
  }
  for (FlatStage& stage : chain.stages) {
    const std::size_t end = moved[stage.first + stage.count];
    stage.first = moved[stage.first];
    stage.count = end - stage.first;
  }
  chain.parts = std::move(parts);
}

}  // namespace quillary::rulec
