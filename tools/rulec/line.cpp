#include "line.h"

#include "rule_file.h"

namespace quillary::rulec {
namespace {

constexpr std::string_view kOpening = "⟨";
constexpr std::string_view kClosing = "⟩";

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r'; }

}  // namespace

std::string Word::Written() const {
  switch (kind) {
    case Kind::Delimited:
      return std::string(kOpening) + text + std::string(kClosing);
    case Kind::Quoted:
      return '"' + text + '"';
    case Kind::Plain:
    case Kind::Comma:
      break;
  }
  return text;
}

Line::Line(std::string_view source, std::size_t number) : number_(number) {
  std::size_t at = 0;
  // What lies between two delimiters of the given lengths.
  const auto delimited = [&](std::size_t open, std::string_view close, const char* cause) {
    const std::size_t end = source.find(close, at + open);
    if (end == std::string_view::npos) Fail(cause);
    std::string inside(source.substr(at + open, end - at - open));
    at = end + close.size();
    return inside;
  };
  while (at < source.size()) {
    if (IsSpace(source[at])) {
      ++at;
    } else if (source[at] == '#' && words_.empty()) {
      return;
    } else if (source.substr(at).starts_with(kOpening)) {
      words_.push_back({Word::Kind::Delimited, delimited(kOpening.size(), kClosing, "open literal")});
    } else if (source[at] == '"') {
      words_.push_back({Word::Kind::Quoted, delimited(1, "\"", "open quotation")});
    } else if (source[at] == ',') {
      words_.push_back({Word::Kind::Comma, ","});
      ++at;
    } else {
      std::size_t end = at;
      while (end < source.size() && !IsSpace(source[end]) && source[end] != ',' &&
             !source.substr(end).starts_with(kOpening)) {
        ++end;
      }
      words_.push_back({Word::Kind::Plain, std::string(source.substr(at, end - at))});
      at = end;
    }
  }
}

bool Line::Take(std::string_view plain) {
  if (done() || words_[next_].kind != Word::Kind::Plain || words_[next_].text != plain) return false;
  ++next_;
  return true;
}

bool Line::TakeComma() {
  if (!NextIsComma()) return false;
  ++next_;
  return true;
}

const std::string& Line::Expect(Word::Kind kind, const std::string& cause) {
  if (done() || words_[next_].kind != kind) Fail(cause);
  return words_[next_++].text;
}

void Line::End() const {
  if (!done()) Fail("unknown word: " + words_[next_].text);
}

void Line::Fail(const std::string& cause) const { throw Malformed(number_, cause); }

}  // namespace quillary::rulec
