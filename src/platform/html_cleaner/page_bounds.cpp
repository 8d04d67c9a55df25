#include "platform/html_cleaner/page_bounds.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/html_cleaner/page_text.h"

namespace quillary::platform {
namespace {

/// Most elements that may be open at a time, those that the library supplies
/// (a row and a cell for a table) included.
constexpr std::size_t most_open = 8000;
/// Most attributes of one tag; the library compares each with all others.
constexpr std::ptrdiff_t most_attributes = 1000;

enum class Kind { Inline, Block, Table, Cell, Item, Empty };

struct Element {
  std::string_view name;
  Kind kind;
  std::size_t weight;  // elements that the library opens for it
};

// What the library treats in a way of its own. Any other element is inline.
constexpr std::array elements{Element{"table", Kind::Table, 4},      Element{"tr", Kind::Cell, 0},
                              Element{"td", Kind::Cell, 0},          Element{"th", Kind::Cell, 0},
                              Element{"tbody", Kind::Cell, 0},       Element{"thead", Kind::Cell, 0},
                              Element{"ul", Kind::Block, 2},         Element{"ol", Kind::Block, 2},
                              Element{"dl", Kind::Block, 2},         Element{"dir", Kind::Block, 2},
                              Element{"menu", Kind::Block, 2},       Element{"li", Kind::Item, 0},
                              Element{"p", Kind::Item, 0},           Element{"hr", Kind::Item, 0},
                              Element{"div", Kind::Block, 1},        Element{"center", Kind::Block, 1},
                              Element{"blockquote", Kind::Block, 1}, Element{"form", Kind::Block, 1},
                              Element{"h1", Kind::Block, 1},         Element{"h2", Kind::Block, 1},
                              Element{"h3", Kind::Block, 1},         Element{"h4", Kind::Block, 1},
                              Element{"h5", Kind::Block, 1},         Element{"h6", Kind::Block, 1},
                              Element{"pre", Kind::Block, 1},        Element{"html", Kind::Empty, 0},
                              Element{"head", Kind::Empty, 0},       Element{"body", Kind::Empty, 0},
                              Element{"br", Kind::Empty, 0},         Element{"img", Kind::Empty, 0},
                              Element{"meta", Kind::Empty, 0},       Element{"link", Kind::Empty, 0},
                              Element{"input", Kind::Empty, 0}};

Element ElementOf(std::string_view name) {
  const auto known = std::find_if(elements.begin(), elements.end(),
                                  [&](const Element& element) { return element.name == name; });
  return known == elements.end() ? Element{name, Kind::Inline, 1} : *known;
}

class Bounds {
 public:
  bool Open(const std::string& name) {
    const Element element = ElementOf(name);
    if (element.kind == Kind::Cell) EndCell();
    if (element.weight > 0) {
      open_.push_back({name, element.weight, element.kind});
      ++open_by_name_[name];
      weight_ += element.weight;
    }
    return weight_ <= most_open;
  }

  // Closes a block and all that was opened in it, or an inline element alone,
  // which may stand across others. An end tag without its element closes nothing.
  void Close(const std::string& name) {
    if (ElementOf(name).kind == Kind::Cell) EndCell();
    if (open_by_name_[name] == 0) return;
    auto found = open_.end();
    do {
      --found;
    } while (found->name != name);
    if (found->kind != Kind::Inline) {
      for (auto inside = open_.end() - found; inside > 0; --inside) Forget();
      return;
    }
    std::rotate(found, found + 1, open_.end());
    Forget();
  }

 private:
  struct OpenElement {
    std::string name;
    std::size_t weight;
    Kind kind;
  };

  // What is open inside a cell ends with it.
  void EndCell() {
    if (open_by_name_["table"] == 0) return;
    while (open_.back().kind != Kind::Table) Forget();
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
    if (std::count(text.begin(), text.end(), '=') > most_attributes) return false;
    if (tag.closes) {
      bounds.Close(tag.name);
    } else if (!bounds.Open(tag.name)) {
      return false;
    }
  }
  return true;
}

}  // namespace quillary::platform
