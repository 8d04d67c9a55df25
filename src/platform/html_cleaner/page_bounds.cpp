#include "platform/html_cleaner/page_bounds.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/html_cleaner/tags.h"
#include "text/html_elements.h"

namespace quillary::platform {
namespace {

/// Most elements that may be open at a time, those that the library supplies
/// (a row and a cell for a table) included.
constexpr std::size_t kMostOpen = 8000;
/// Most attributes of one tag; the library compares each with all others.
constexpr std::ptrdiff_t kMostAttributes = 1000;

/// The elements that the library opens for one of these.
std::size_t WeightOf(ElementNesting nesting) {
  switch (nesting) {
    case ElementNesting::Inline:
    case ElementNesting::Block:
      return 1;
    case ElementNesting::List:
      return 2;
    case ElementNesting::Table:
      return 4;
    case ElementNesting::Cell:
    case ElementNesting::Void:
      break;
  }
  return 0;
}

class Bounds {
 public:
  bool Open(const std::string& name) {
    const ElementNesting nesting = FindHtmlElement(name).nesting;
    const std::size_t weight = WeightOf(nesting);
    if (nesting == ElementNesting::Cell) EndCell();
    if (weight > 0) {
      open_.push_back({name, nesting, weight});
      ++open_by_name_[name];
      weight_ += weight;
    }
    return weight_ <= kMostOpen;
  }

  // Closes a block and all that was opened in it, or an inline element alone,
  // which may stand across others. An end tag without its element closes nothing.
  void Close(const std::string& name) {
    if (FindHtmlElement(name).nesting == ElementNesting::Cell) EndCell();
    if (open_by_name_[name] == 0) return;
    auto found = open_.end();
    do {
      --found;
    } while (found->name != name);
    if (found->nesting != ElementNesting::Inline) {
      for (auto inside = open_.end() - found; inside > 0; --inside) Forget();
      return;
    }
    std::rotate(found, found + 1, open_.end());
    Forget();
  }

 private:
  struct OpenElement {
    std::string name;
    ElementNesting nesting;
    std::size_t weight;
  };

  // What is open inside a cell ends with it.
  void EndCell() {
    if (open_by_name_["table"] == 0) return;
    while (open_.back().nesting != ElementNesting::Table) Forget();
  }

  // Takes the element opened last out of all counts.
  void Forget() {
    weight_ -= open_.back().weight;
    --open_by_name_[open_.back().name];
    open_.pop_back();
  }

  std::vector<OpenElement> open_;
  std::unordered_map<std::string, std::size_t> open_by_name_;
  std::size_t weight_ = 0;
};

}  // namespace

bool IsWithinBounds(std::string_view page) {
  Bounds bounds;
  for (std::size_t at = page.find('<'); at != std::string_view::npos; at = page.find('<', at)) {
    const Tag tag = ReadTag(page, at);
    const std::string_view text = page.substr(at, tag.end - at);
    at = tag.end;
    if (tag.name.empty()) continue;
    if (std::count(text.begin(), text.end(), '=') > kMostAttributes) return false;
    if (tag.closes) {
      bounds.Close(tag.name);
    } else if (!bounds.Open(tag.name)) {
      return false;
    }
  }
  return true;
}

}  // namespace quillary::platform
