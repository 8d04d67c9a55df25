#include "platform/html_cleaner/open_inlines.h"

#include <algorithm>
#include <iterator>

#include "text/ascii.h"

namespace quillary::platform {
namespace {

struct Words {
  std::string_view element;
  char between;  // name and value of a property
  std::array<std::string_view, 4> properties;
};

constexpr Words kFontWords{"font", '=', {"face=", "size=", "color=", "bgcolor="}};
constexpr Words kSpanWords{"span", ':', {"font-family:", "font-size:", "color:", "background-color:"}};

const Words& WordsOf(std::string_view element) {
  return element == kFontWords.element ? kFontWords : kSpanWords;
}

// Where the value of this property begins in a tag, npos if it has none.
std::size_t ValueOf(std::string_view tag, std::string_view property) {
  const auto same = [](char character, char lower) { return AsciiLower(character) == lower; };
  for (auto from = tag.begin();; ++from) {
    from = std::search(from, tag.end(), property.begin(), property.end(), same);
    if (from == tag.end()) return std::string_view::npos;
    const char before = from == tag.begin() ? ' ' : *(from - 1);
    if (!IsAsciiLetter(before) && before != '-') {
      return static_cast<std::size_t>(from - tag.begin()) + property.size();
    }
  }
}

}  // namespace

OpenInlines::OpenInlines(const std::string& face_tag) : carried_(face_tag) {
  if (carried_.empty()) return;
  const Words& words = carried_.starts_with("<font") ? kFontWords : kSpanWords;
  elements_.push_back({words.element, carried_, Effect::Properties, false});
}

void OpenInlines::Open(std::string_view name, std::string_view tag, Effect effect, bool ends_with_block) {
  Element element{name, tag, effect, ends_with_block};
  const std::size_t index = elements_.size();
  std::vector<std::size_t>& same = by_name_[name];
  if (effect == Effect::Properties ? !NameProperties(element, index)
                                   : effect == Effect::Other || same.empty()) {
    always_.push_back(index);
  }
  same.push_back(index);
  if (ends_with_block) in_blocks_.push_back(index);
  elements_.push_back(element);
}

// Whether the element does nothing but name properties that others may cover.
bool OpenInlines::NameProperties(Element& element, std::size_t index) const {
  if (const Last* const last = LastOf(element.name)) element.last = *last;
  const Words& words = WordsOf(element.name);
  std::ptrdiff_t known = 0;
  for (std::size_t property = 0; property < element.last.size(); ++property) {
    if (ValueOf(element.tag, words.properties[property]) == std::string_view::npos) continue;
    element.last[property] = index;
    ++known;
  }
  return known > 0 && known == std::count(element.tag.begin(), element.tag.end(), words.between);
}

void OpenInlines::End(std::string_view name) {
  const auto same = by_name_.find(name);
  if (same == by_name_.end() || same->second.empty()) return;
  const std::size_t index = same->second.back();
  if (elements_[index].ends_with_block && !blocks_.empty() && blocks_.back().next > index) return;
  EndInBlocks(index + 1);
  EndElement(index);
}

void OpenInlines::OpenBlock(std::string_view name) {
  ++block_count_[name];
  blocks_.push_back({name, elements_.size()});
}

bool OpenInlines::HoldsBlock(std::string_view name) const {
  const auto found = block_count_.find(name);
  return found != block_count_.end() && found->second > 0;
}

void OpenInlines::EndBlock(std::string_view name, bool item) {
  if (!HoldsBlock(name)) return;
  std::size_t index = blocks_.size();
  do {
    --index;
    const std::string_view inside = blocks_[index].name;
    if (item && (inside == "ul" || inside == "ol" || inside == "dl")) return;
  } while (blocks_[index].name != name);
  EndInBlocks(blocks_[index].next);
  for (; blocks_.size() > index; blocks_.pop_back()) --block_count_[blocks_.back().name];
}

void OpenInlines::GoOnIn(OpenInlines& outside) const {
  for (std::size_t index = carried_.empty() ? 0 : 1; index < elements_.size(); ++index) {
    const Element& element = elements_[index];
    const std::vector<std::size_t>& same = by_name_.at(element.name);
    if (element.ends_with_block || !std::binary_search(same.begin(), same.end(), index)) continue;
    outside.Open(element.name, element.tag, element.effect, false);
  }
}

void OpenInlines::Write(std::string& page) {
  needed_ = always_;
  for (const Words& words : {kFontWords, kSpanWords}) {
    const Last* const last = LastOf(words.element);
    if (last == nullptr) continue;
    std::copy_if(last->begin(), last->end(), std::back_inserter(needed_),
                 [](std::size_t index) { return index != kNone; });
  }
  if (!carried_.empty() && LastFace() == kNone) needed_.push_back(0);
  std::sort(needed_.begin(), needed_.end());
  needed_.erase(std::unique(needed_.begin(), needed_.end()), needed_.end());

  const auto parted = std::mismatch(written_.begin(), written_.end(), needed_.begin(), needed_.end());
  CloseFrom(page, static_cast<std::size_t>(parted.first - written_.begin()));
  for (auto next = parted.second; next != needed_.end(); ++next) {
    Element& element = elements_[*next];
    page += element.tag;
    if (!element.tag.ends_with('>')) page += '>';
    if (element.was_written) ++reopened_;
    element.was_written = true;
    written_.push_back(*next);
  }
}

// Closes what is written but for the first so many.
void OpenInlines::CloseFrom(std::string& page, std::size_t count) {
  for (; written_.size() > count; written_.pop_back()) {
    page += "</";
    page += elements_[written_.back()].name;
    page += '>';
  }
}

std::string OpenInlines::FaceTag() const {
  const std::size_t index = LastFace();
  if (index == kNone) return carried_;
  const bool font = elements_[index].name == kFontWords.element;
  const std::string_view tag = elements_[index].tag;
  std::size_t from = ValueOf(tag, WordsOf(elements_[index].name).properties[0]);
  if (font && tag.substr(from).starts_with('"')) ++from;
  const std::string face(tag.substr(from, tag.find_first_of(font ? "\">" : ";\">", from) - from));
  return (font ? "<font face=\"" : "<span style=\"font-family:") + face + "\">";
}

const OpenInlines::Last* OpenInlines::LastOf(std::string_view name) const {
  const auto same = by_name_.find(name);
  return same == by_name_.end() || same->second.empty() ? nullptr : &elements_[same->second.back()].last;
}

std::size_t OpenInlines::LastFace() const {
  const Last* const font = LastOf(kFontWords.element);
  const Last* const span = LastOf(kSpanWords.element);
  const std::size_t of_font = font == nullptr ? kNone : font->front();
  const std::size_t of_span = span == nullptr ? kNone : span->front();
  if (of_font == kNone || of_span == kNone) return std::min(of_font, of_span);
  return std::max(of_font, of_span);
}

void OpenInlines::EndElement(std::size_t index) {
  by_name_[elements_[index].name].pop_back();
  const auto always = std::find(always_.rbegin(), always_.rend(), index);
  if (always != always_.rend()) always_.erase(std::next(always).base());
  if (!in_blocks_.empty() && in_blocks_.back() == index) in_blocks_.pop_back();
}

// Ends from this element on those that end with their block.
void OpenInlines::EndInBlocks(std::size_t from) {
  while (!in_blocks_.empty() && in_blocks_.back() >= from) EndElement(in_blocks_.back());
}

}  // namespace quillary::platform
