#include "rtf_to_html/segments/segment_brace_groups.h"

#include <algorithm>
#include <vector>

#include "rtf_to_html/segments/segment.h"

namespace quillary::modQuillary {
namespace {

// A group that does not balance within so many units stays.
constexpr std::size_t kWideningLimit = 3800;
// Braces are counted no further, so beyond this any two counts are equal.
constexpr int kCountLimit = 181;

class GroupRemoval {
 public:
  GroupRemoval(TextView body, bool foreign) : body_(body), foreign_(foreign) {
    done_.reserve(body.size() + 64);
  }

  Text Run() {
    while (FindGroup() && RemoveGroup()) {
    }
    done_.append(body_, at_, TextView::npos);
    DropOpeningBraces();
    return std::move(done_);
  }

 private:
  // Puts everything up to the next group, and its brace, after what is done.
  bool FindGroup() {
    if (reopened_) return true;
    const std::size_t start = body_.find(u"{\\", at_);
    if (start == TextView::npos) return false;
    done_.append(body_, at_, start + 1 - at_);
    group_ = done_.size() - 1;
    at_ = start + 1;
    return true;
  }

  // The end of the group whose brace stands at group_ and whose further text
  // begins at at_; npos if it does not balance. `nested` tells whether it
  // holds more than one opening brace.
  std::size_t FindEnd(bool& nested) const {
    const std::size_t first = body_.find(u'}', at_);
    if (first == TextView::npos) return TextView::npos;
    const TextView start = body_.substr(at_, first - at_);
    auto opened = 1 + std::count(start.begin(), start.end(), u'{');
    decltype(opened) closed = 1;
    std::size_t end = first;
    while (std::min<std::ptrdiff_t>(opened, kCountLimit) != std::min<std::ptrdiff_t>(closed, kCountLimit)) {
      if (++end - first >= kWideningLimit || end >= body_.size()) return TextView::npos;
      if (body_[end] == u'{') ++opened;
      if (body_[end] == u'}') ++closed;
    }
    nested = opened > 1;
    return end;
  }

  // Whether the last unit of the group ahead of its closing brace is `unit`.
  bool EndsWith(std::size_t end, char16_t unit) const {
    return (end > at_ ? body_[end - 1] : done_.back()) == unit;
  }

  bool RemoveGroup() {
    bool nested = false;
    const std::size_t end = FindEnd(nested);
    if (end == TextView::npos) return false;
    const bool destination = body_.substr(at_, 3) == u"\\*\\" && group_ + 1 == done_.size();
    if (nested || destination || EndsWith(end, u';')) {
      done_.resize(group_);
      while (!dropped_.empty() && dropped_.back() > group_) dropped_.pop_back();
      at_ = end + 1;
      reopened_ = !done_.empty() && done_.back() == u'{' && at_ < body_.size() && body_[at_] == u'\\';
      if (reopened_) group_ = done_.size() - 1;
      return true;
    }
    const TextView rest = body_.substr(at_, end - at_);
    if (foreign_ && rest.find(u"\\'") != TextView::npos) return false;
    dropped_.push_back(group_);
    done_.append(rest).append(u"</b></i></u>");
    at_ = end + 1;
    reopened_ = group_ > 0 && done_[group_ - 1] == u'{';
    if (reopened_) --group_;
    return true;
  }

  // The opening braces of simple groups go all at once.
  void DropOpeningBraces() {
    if (dropped_.empty()) return;
    std::sort(dropped_.begin(), dropped_.end());
    std::size_t to = dropped_.front();
    std::size_t next = 0;
    for (std::size_t from = to; from < done_.size(); ++from) {
      if (next < dropped_.size() && dropped_[next] == from) {
        ++next;
      } else {
        done_[to++] = done_[from];
      }
    }
    done_.resize(to);
  }

  TextView body_;
  bool foreign_;
  Text done_;
  std::size_t at_ = 0;                // where the rest of the body begins
  std::size_t group_ = 0;             // of the opening brace, in done_
  bool reopened_ = false;             // the brace at group_ begins a group by now
  std::vector<std::size_t> dropped_;  // braces of done_ that are to go
};

}  // namespace

void RemoveBraceGroups(const RtfToHtmlState& state, Text& body) {
  if (body.find(u"{\\") == Text::npos) return;
  body = GroupRemoval(body, state.ForeignCharsets).Run();
}

}  // namespace quillary::modQuillary
