#include "platform/page_bounds.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace quillary::platform {
namespace {

/// Most elements that may be open at a time, those that the library supplies
/// (a row and a cell for a table) included.
constexpr std::size_t most_open = 3000;
/// Most inline elements that the library may have to open again in new blocks.
constexpr std::size_t most_reopened = 200000;
/// Most attributes of one tag; the library compares each with all others.
constexpr std::size_t most_attributes = 1000;

struct Element {
  std::string_view name;
  std::size_t weight;  // elements that the library opens for it
  bool block;
};

// What the library treats in a way of its own. Any other element is inline,
// which costs most.
constexpr std::array elements{
    Element{"table", 4, true},      Element{"tr", 0, false},    Element{"td", 0, false},
    Element{"th", 0, false},        Element{"tbody", 0, false}, Element{"thead", 0, false},
    Element{"ul", 2, true},         Element{"ol", 2, true},     Element{"dl", 2, true},
    Element{"dir", 2, true},        Element{"menu", 2, true},   Element{"li", 0, true},
    Element{"p", 0, true},          Element{"div", 1, true},    Element{"center", 1, true},
    Element{"blockquote", 1, true}, Element{"h1", 1, true},     Element{"h2", 1, true},
    Element{"h3", 1, true},         Element{"h4", 1, true},     Element{"h5", 1, true},
    Element{"h6", 1, true},         Element{"form", 1, true},   Element{"pre", 1, true},
    Element{"html", 1, false},      Element{"head", 1, false},  Element{"body", 1, false},
    Element{"br", 0, false},        Element{"hr", 0, true},     Element{"img", 0, false},
    Element{"meta", 0, false},      Element{"link", 0, false},  Element{"input", 0, false}};

char Lower(char sign) { return sign >= 'A' && sign <= 'Z' ? static_cast<char>(sign + 32) : sign; }
bool IsNameSign(char sign) {
  const char lower = Lower(sign);
  return (lower >= 'a' && lower <= 'z') || (sign >= '0' && sign <= '9');
}

class Bounds {
 public:
  bool Open(const std::string& name) {
    const auto known = std::find_if(elements.begin(), elements.end(),
                                    [&](const Element& element) { return element.name == name; });
    const std::size_t weight = known == elements.end() ? 1 : known->weight;
    const bool inline_element = known == elements.end();
    if (!inline_element && known->block) reopened_ += inlines_;
    if (weight > 0) {
      open_.push_back({name, weight, inline_element});
      weight_ += weight;
      if (inline_element) ++inlines_;
    }
    return weight_ <= most_open && reopened_ <= most_reopened;
  }

  // Closes the element and all that was opened in it. A closing tag without
  // its element closes nothing.
  void Close(const std::string& name) {
    const auto found = std::find_if(open_.rbegin(), open_.rend(),
                                    [&](const OpenElement& element) { return element.name == name; });
    if (found == open_.rend()) return;
    // An inline element may be closed across others, which go on.
    if (found->inline_element) {
      weight_ -= found->weight;
      --inlines_;
      open_.erase(std::next(found).base());
      return;
    }
    const auto first = std::next(found).base();
    for (auto element = first; element != open_.end(); ++element) {
      weight_ -= element->weight;
      if (element->inline_element) --inlines_;
    }
    open_.erase(first, open_.end());
  }

 private:
  struct OpenElement {
    std::string name;
    std::size_t weight;
    bool inline_element;
  };
  std::vector<OpenElement> open_;
  std::size_t weight_ = 0;
  std::size_t inlines_ = 0;
  std::size_t reopened_ = 0;
};

}  // namespace

bool IsWithinBounds(std::string_view page) {
  Bounds bounds;
  std::string name;
  std::size_t at = 0;
  while ((at = page.find('<', at)) != std::string_view::npos) {
    ++at;
    const bool closes = at < page.size() && page[at] == '/';
    if (closes) ++at;
    name.clear();
    while (at < page.size() && IsNameSign(page[at])) name += Lower(page[at++]);
    if (name.empty()) continue;
    const std::size_t end = std::min(page.find_first_of("<>", at), page.size());
    if (std::count(page.begin() + static_cast<std::ptrdiff_t>(at),
                   page.begin() + static_cast<std::ptrdiff_t>(end),
                   '=') > static_cast<std::ptrdiff_t>(most_attributes)) {
      return false;
    }
    at = end;
    if (closes) {
      bounds.Close(name);
    } else if (!bounds.Open(name)) {
      return false;
    }
  }
  return true;
}

}  // namespace quillary::platform
