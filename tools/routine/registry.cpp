// Runs one request: a fresh apartment, the state laid over it, the routine,
// and the answer.
#include "registry.h"

namespace quillary::routine {
namespace {

// Writes the pictures where it can: the folders that requests name need not exist here.
class WillingExtractor final : public platform::PictureExtractor {
 public:
  std::int32_t Parse(TextView rtf, TextView path_prefix, std::int16_t origin, std::int16_t format,
                     std::int16_t quality, std::int16_t pages, TextView licence) override {
    std::int32_t count = 0;
    Attempt([&] {
      count =
          platform::MakePictureExtractor()->Parse(rtf, path_prefix, origin, format, quality, pages, licence);
    });
    return count;
  }
};

Json Answer(Json result, Json args, Json state, Json failure) {
  return {{"result", std::move(result)},
          {"args", std::move(args)},
          {"state", std::move(state)},
          {"failure", std::move(failure)}};
}

std::vector<std::string> NamesIn(const Json& want) {
  if (!want.is_array()) throw Refusal("usage");
  std::vector<std::string> names;
  for (const Json& name : want) {
    if (!name.is_string()) throw Refusal("usage");
    names.push_back(name.get<std::string>());
  }
  return names;
}

}  // namespace

void Registry::Add(std::string name, std::vector<Kind> kinds, Body body, std::size_t optional) {
  routines_[std::move(name)] = {std::move(kinds), std::move(body), optional};
}

std::vector<std::string> Registry::Names() const {
  std::vector<std::string> names;
  for (const auto& [name, routine] : routines_) names.push_back(name);
  return names;
}

Json Registry::Run(const Json& request) const {
  const Json args = request.is_object() ? request.value("args", Json::array()) : Json::array();
  try {
    if (!request.is_object() || !args.is_array()) throw Refusal("usage");
    const Json name = request.value("routine", Json());
    if (!name.is_string()) throw Refusal("usage");
    const auto found = routines_.find(name.get<std::string>());
    if (found == routines_.end()) throw Refusal("unknown");
    const Routine& routine = found->second;
    if (args.size() > routine.kinds.size() || args.size() + routine.optional < routine.kinds.size()) {
      throw Refusal("usage");
    }
    Apartment apartment;
    apartment.services.picture_extractor = [] { return std::make_unique<WillingExtractor>(); };
    if (request.contains("state")) StateFromJson(request["state"], apartment);
    const bool all = !request.contains("want");
    const std::vector<std::string> names = all ? std::vector<std::string>() : NamesIn(request["want"]);
    Call call(apartment, args, routine.kinds);
    Json failure;
    try {
      routine.body(call);
    } catch (const Failure& caught) {
      failure = caught.name();
      call.result = nullptr;
    } catch (const LimitReached&) {
      failure = "limit";
      call.result = nullptr;
    }
    Json state = all || !names.empty() ? StateToJson(apartment, names) : Json::object();
    return Answer(std::move(call.result), call.arguments(), std::move(state), std::move(failure));
  } catch (const Refusal& refusal) {
    return Answer(nullptr, args, Json::object(), refusal.what());
  }
}

const Registry& AllRoutines() {
  static const Registry registry = [] {
    Registry all;
    AddChainRoutines(all);
    AddTextRoutines(all);
    AddComponentRoutines(all);
    AddDriverRoutines(all);
    AddEscapeRoutines(all);
    AddRichTextRoutines(all);
    AddSegmentRoutines(all);
    AddLinkRoutines(all);
    AddTableRoutines(all);
    AddFinishingRoutines(all);
    AddEntityRoutines(all);
    AddHtmlToRtfRoutines(all);
    AddStyleRoutines(all);
    return all;
  }();
  return registry;
}

}  // namespace quillary::routine
