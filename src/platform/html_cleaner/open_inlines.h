// The inline elements that are open at a place of a page.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillary::platform {

/// What is open in the page, in a table between its cells, or in a cell: an
/// end tag reaches nothing outside. Inline elements may end across each other.
/// Those whose effect others cover are not written, so that a page may leave
/// any number of them open. Names and tags are views that outlive the object.
class OpenInlines {
 public:
  enum class Effect {
    Toggle,      // the same twice is the same once
    Properties,  // each is covered by the next that names it
    Other
  };

  OpenInlines() = default;
  /// In a cell: the face around its table is that of its text too, unless it
  /// has its own. Nothing else goes into a table.
  explicit OpenInlines(const std::string& face_tag);
  OpenInlines(const OpenInlines&) = delete;
  OpenInlines& operator=(const OpenInlines&) = delete;

  void Open(std::string_view name, std::string_view tag, Effect effect, bool ends_with_block);
  /// Ends the last of this name; one that ends with its block, only in it.
  void End(std::string_view name);
  void OpenBlock(std::string_view name);
  bool HoldsBlock(std::string_view name) const;
  /// Ends the last such block with the blocks in it, an item only within its
  /// list.
  void EndBlock(std::string_view name, bool item);
  /// Opens outside what goes on there.
  void GoOnIn(OpenInlines& outside) const;

  /// Opens and closes in the page what a text here needs.
  void Write(std::string& page);
  void Close(std::string& page) { CloseFrom(page, 0); }

  /// A tag for the face that a text here has; empty if none is named.
  std::string FaceTag() const;
  /// How often an element was written again.
  std::size_t reopened() const { return reopened_; }
  /// How many elements that nothing covers a text here stands in.
  std::size_t inline_depth() const { return always_.size(); }
  std::size_t block_depth() const { return blocks_.size(); }

 private:
  static constexpr std::size_t kNone = ~std::size_t{0};
  using Last = std::array<std::size_t, 4>;  // by property the last element that names it

  struct Element {
    std::string_view name;
    std::string_view tag;
    Effect effect;
    bool ends_with_block;
    Last last{kNone, kNone, kNone, kNone};
    bool was_written = false;
  };
  struct Block {
    std::string_view name;
    std::size_t next;  // the element that is opened next
  };

  bool NameProperties(Element& element, std::size_t index) const;
  const Last* LastOf(std::string_view name) const;
  std::size_t LastFace() const;
  void EndElement(std::size_t index);
  void EndInBlocks(std::size_t from);
  void CloseFrom(std::string& page, std::size_t count);

  const std::string carried_;      // the tag of the face around the table: element 0
  std::vector<Element> elements_;  // also those that have ended
  std::unordered_map<std::string_view, std::vector<std::size_t>> by_name_;
  std::vector<std::size_t> in_blocks_;  // those that end with their block
  std::vector<std::size_t> always_;     // those that nothing covers
  std::vector<Block> blocks_;
  std::unordered_map<std::string_view, std::size_t> block_count_;
  std::vector<std::size_t> written_;
  std::vector<std::size_t> needed_;
  std::size_t reopened_ = 0;
};

}  // namespace quillary::platform
