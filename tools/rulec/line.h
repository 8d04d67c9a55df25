// The words of one line of a rule file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillary::rulec {

struct Word {
  enum class Kind { Plain, Delimited, Quoted, Comma };
  Kind kind = Kind::Plain;
  std::string text;  // what stands between the delimiters

  /// With its delimiters.
  std::string Written() const;
};

/// A line cut into words, read from left to right.
class Line {
 public:
  /// Throws Malformed for a literal or a quotation that is not closed.
  Line(std::string_view source, std::size_t number);

  std::size_t number() const { return number_; }
  bool empty() const { return words_.empty(); }
  bool done() const { return next_ == words_.size(); }

  /// Takes the next word if it is this one.
  bool Take(std::string_view plain);
  bool TakeComma();
  bool NextIsLiteral() const { return !done() && words_[next_].kind == Word::Kind::Delimited; }
  bool NextIsComma() const { return !done() && words_[next_].kind == Word::Kind::Comma; }
  /// The next word, whatever it says; throws Malformed with the cause if
  /// there is none, or none of that kind.
  const std::string& Expect(Word::Kind kind, const std::string& cause);
  const Word& Next() { return words_[next_++]; }
  const std::vector<Word>& words() const { return words_; }

  /// Throws Malformed for a word that nothing has taken.
  void End() const;
  [[noreturn]] void Fail(const std::string& cause) const;

 private:
  std::vector<Word> words_;
  std::size_t next_ = 0;
  std::size_t number_;
};

}  // namespace quillary::rulec
