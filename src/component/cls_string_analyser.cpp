#include "component/cls_string_analyser.h"

#include "text/failure.h"

namespace quillary::component {
namespace {

constexpr std::int32_t kNoHit = 99999999;

}  // namespace

void clsStringAnalyser::Begin(TextView input, bool ignore_case,
                              const std::optional<std::vector<Text>>& delimiters) {
  new_ = false;
  input_ = input;
  ignore_case_ = ignore_case;
  searched_ = ignore_case ? ToUpper(input) : input_;
  if (delimiters) {
    delimiters_ = *delimiters;
  } else {
    delimiters_.emplace_back(u" ");
  }
}

Text clsStringAnalyser::PopWord(TextView pInputString, std::optional<bool> pbIgnoreCase,
                                const std::optional<std::vector<Text>>& pcolDelimiters) {
  Text word;
  Attempt([&] {
    if (new_) Begin(pInputString, pbIgnoreCase.value_or(true), pcolDelimiters);
    if (last_hit_ >= Length(input_)) return;
    std::int32_t nearest = kNoHit;
    std::int32_t delimiter_length = 0;
    for (const Text& delimiter : delimiters_) {
      last_hit_ = FindText(position_, searched_, ignore_case_ ? ToUpper(delimiter) : delimiter);
      if (last_hit_ > 0 && last_hit_ <= nearest) {
        nearest = last_hit_;
        delimiter_length = Length(delimiter);
      }
    }
    if (nearest == kNoHit) {
      word = Mid(input_, position_);
      last_hit_ = Length(input_) + 1;
    } else {
      word = Mid(input_, position_, nearest - position_);
      position_ = nearest + delimiter_length;
    }
  });
  return word;
}

void clsStringAnalyser::Restart() {
  new_ = true;
  position_ = 1;
  last_hit_ = 1;
}

}  // namespace quillary::component
