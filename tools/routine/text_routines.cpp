// The text vocabulary, one routine for each operation.
#include "registry.h"

namespace quillary::routine {
namespace {

Compare ModeOr(const Call& call, std::size_t index) {
  return call.count() > index ? call.mode(index) : Compare::Binary;
}

void AddSearches(Registry& registry) {
  registry.Add(
      "ReplaceAll", {Kind::Text, Kind::Text, Kind::Text, Kind::Mode},
      [](Call& call) {
        call.result = ToJson(ReplaceAll(call.text(0), call.text(1), call.text(2), ModeOr(call, 3)));
      },
      1);
  registry.Add(
      "FindText", {Kind::Integer32, Kind::Text, Kind::Text, Kind::Mode},
      [](Call& call) {
        call.result = FindText(call.integer(0), call.text(1), call.text(2), ModeOr(call, 3));
      },
      1);
  registry.Add(
      "CountOccurrences", {Kind::Text, Kind::Text, Kind::Mode},
      [](Call& call) { call.result = CountOccurrences(call.text(0), call.text(1), ModeOr(call, 2)); }, 1);
  registry.Add(
      "LastPosition", {Kind::Text, Kind::Text, Kind::Mode},
      [](Call& call) { call.result = LastPosition(call.text(0), call.text(1), ModeOr(call, 2)); }, 1);
}

void AddNumbers(Registry& registry) {
  registry.Add("RoundNumberText", {Kind::Text},
               [](Call& call) { call.result = RoundNumberText(call.text(0)); });
  registry.Add("PercentToByte", {Kind::Text},
               [](Call& call) { call.result = ToJson(PercentToByte(call.text(0))); });
  registry.Add("IsNumeric", {Kind::Text}, [](Call& call) { call.result = IsNumeric(call.text(0)); });
  registry.Add("Hex", {Kind::Integer32}, [](Call& call) {
    const std::int32_t value = call.integer(0);
    const bool fits = value >= INT16_MIN && value <= INT16_MAX;
    call.result = ToJson(fits ? Hex16(static_cast<std::int16_t>(value)) : Hex(value));
  });
}

void AddLists(Registry& registry) {
  registry.Add("FindInList", {Kind::List, Kind::Text},
               [](Call& call) { call.result = FindInList(ToList(call.raw(0)), call.text(1)); });
  registry.Add("IsListEmpty", {Kind::List},
               [](Call& call) { call.result = IsListEmpty(ToList(call.raw(0))); });
}

void AddPieces(Registry& registry) {
  registry.Add("ExtractElement", {Kind::Text, Kind::Text},
               [](Call& call) { call.result = ToJson(ExtractElement(call.text(0), call.text(1))); });
  registry.Add("YieldToHost", {}, [](Call&) { YieldToHost(); });
  registry.Add("Left", {Kind::Text, Kind::Integer32},
               [](Call& call) { call.result = ToJson(Left(call.text(0), call.integer(1))); });
  registry.Add("Right", {Kind::Text, Kind::Integer32},
               [](Call& call) { call.result = ToJson(Right(call.text(0), call.integer(1))); });
  registry.Add(
      "Mid", {Kind::Text, Kind::Integer32, Kind::Integer32},
      [](Call& call) {
        call.result = ToJson(call.count() > 2 ? Mid(call.text(0), call.integer(1), call.integer(2))
                                              : Mid(call.text(0), call.integer(1)));
      },
      1);
  registry.Add("Trim", {Kind::Text}, [](Call& call) { call.result = ToJson(Trim(call.text(0))); });
  registry.Add("ToUpper", {Kind::Text}, [](Call& call) { call.result = ToJson(ToUpper(call.text(0))); });
  registry.Add("ToLower", {Kind::Text}, [](Call& call) { call.result = ToJson(ToLower(call.text(0))); });
}

}  // namespace

void AddTextRoutines(Registry& registry) {
  AddSearches(registry);
  AddNumbers(registry);
  AddLists(registry);
  AddPieces(registry);
}

}  // namespace quillary::routine
