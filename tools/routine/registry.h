// The routines that can be run alone: a name, the kinds of the arguments, and
// a function that runs the operation on one call.
#pragma once

#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "apartment/apartment.h"

namespace quillary::routine {

using Json = nlohmann::json;

/// What a routine takes at one place. Integer16 and Integer32 are whole
/// numbers that must fit; Mode is 0 or 1; Any is left to the routine.
enum class Kind { Text, Integer16, Integer32, Mode, List, Record, Any };

/// Something wrong with a request itself; the word goes into "failure".
class Refusal : public std::exception {
 public:
  explicit Refusal(const char* word) : word_(word) {}
  const char* what() const noexcept override { return word_; }

 private:
  const char* word_;
};

/// One call. Texts, lists and records are by reference: what the routine puts
/// into them stands in the answer's "args".
class Call {
 public:
  Call(Apartment& apartment, Json args, const std::vector<Kind>& kinds);

  Apartment& apartment() { return apartment_; }
  RtfToHtmlState& state() { return apartment_.rtf_to_html; }
  HtmlToRtfState& html_state() { return apartment_.html_to_rtf; }
  std::size_t count() const { return args_.size(); }
  Text& text(std::size_t index) { return texts_[index]; }
  std::int32_t integer(std::size_t index) const { return integers_[index]; }
  Compare mode(std::size_t index) const { return static_cast<Compare>(integers_[index]); }
  Json& raw(std::size_t index) { return args_[index]; }

  /// The arguments as they are now.
  Json arguments() const;

  Json result;

 private:
  Apartment& apartment_;
  Json args_;
  std::vector<Kind> kinds_;
  std::vector<Text> texts_;
  std::vector<std::int32_t> integers_;
};

class Registry {
 public:
  using Body = std::function<void(Call&)>;

  /// The last `optional` arguments may be left out.
  void Add(std::string name, std::vector<Kind> kinds, Body body, std::size_t optional = 0);
  std::vector<std::string> Names() const;

  /// Runs one request on a fresh apartment and gives the answer; never throws
  /// but for want of memory.
  Json Run(const Json& request) const;

 private:
  struct Routine {
    std::vector<Kind> kinds;
    Body body;
    std::size_t optional;
  };
  std::map<std::string, Routine> routines_;
};

/// All routines of the program.
const Registry& AllRoutines();

// One function for each module's routines.
void AddTextRoutines(Registry& registry);
void AddComponentRoutines(Registry& registry);
void AddDriverRoutines(Registry& registry);
/// Chains come first: an operation of the same name takes the name.
void AddChainRoutines(Registry& registry);
void AddEscapeRoutines(Registry& registry);
void AddRichTextRoutines(Registry& registry);
void AddSegmentRoutines(Registry& registry);
void AddLinkRoutines(Registry& registry);
void AddTableRoutines(Registry& registry);
void AddFinishingRoutines(Registry& registry);
void AddEntityRoutines(Registry& registry);
void AddHtmlToRtfRoutines(Registry& registry);
void AddStyleRoutines(Registry& registry);

/// Lists in JSON: null was never sized, trailing entries that were never set
/// are left out. `lowest` is the index of the first entry.
Json ToJson(const TextList& list, std::int32_t lowest = 0);
TextList ToList(const Json& value, std::int32_t lowest = 0);

/// Every rule of every chain in running order, families expanded, as a row.
std::vector<Json> RuleRows();

/// Texts in JSON: a lone surrogate stands as itself.
Json ToJson(TextView text);
Text ToText(const Json& value);

/// A line of JSON, in which a lone surrogate may travel as \udXXX.
/// Throws nlohmann's parse error.
Json ParseLine(const std::string& line);
std::string WriteLine(const Json& value);

/// The state by the names in use; `names` empty means all. Throws Refusal for a name that is none.
Json StateToJson(const Apartment& apartment, const std::vector<std::string>& names);
/// Overlays fields of the state. Throws Refusal.
void StateFromJson(const Json& fields, Apartment& apartment);

}  // namespace quillary::routine
