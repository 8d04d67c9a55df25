#include "expand.h"

#include <functional>

#include "literal.h"

namespace quillary::rulec {
namespace {

class Expander {
 public:
  explicit Expander(FlatChain& chain) : chain_(chain) {}

  void Stage(const StageSource& source) {
    const std::size_t first = chain_.parts.size();
    // Rules of two stages never share a part.
    joinable_ = false;
    Body(source.body);
    chain_.stages.push_back({source.name, source.purpose, first, chain_.parts.size() - first});
  }

 private:
  void Body(const std::vector<Node>& body) {
    for (const Node& node : body) {
      switch (node.kind) {
        case Node::Kind::Rule:
          OverFamilies(node.families, 0, [&] { Rule(node); });
          break;
        case Node::Kind::For:
          OverFamilies(node.families, 0, [&] { Body(node.body); });
          break;
        case Node::Kind::When:
          When(node);
          break;
        case Node::Kind::Scan:
          chain_.parts.push_back({FlatPart::Kind::Scan, 0, 0, 0, node.scan, node.state_use, 0});
          joinable_ = false;
          break;
      }
    }
  }

  // The first family is the outermost loop.
  void OverFamilies(const std::vector<Family>& families, std::size_t depth,
                    const std::function<void()>& action) {
    if (depth == families.size()) return action();
    for (const Text& value : families[depth].values) {
      values_[families[depth].placeholder] = value;
      OverFamilies(families, depth + 1, action);
    }
    values_.erase(families[depth].placeholder);
  }

  void Rule(const Node& node) {
    FlatRule rule{Fill(node.find, values_), Fill(node.with, values_), node.mode, node.limit, node.line};
    if (rule.find.size() > 0xFFFF || rule.with.size() > 0xFFFF)
      throw Malformed(node.line, "literal too long");
    if (!joinable_)
      chain_.parts.push_back({FlatPart::Kind::Rules, chain_.rules.size(), 0, 0, "", StateUse::None, 0});
    joinable_ = true;
    chain_.rules.push_back(std::move(rule));
    ++chain_.parts.back().count;
  }

  void When(const Node& node) {
    const std::size_t guard = chain_.parts.size();
    chain_.parts.push_back(
        {FlatPart::Kind::Guard, chain_.conditions.size(), node.conditions.size(), 0, "", StateUse::None, 0});
    for (const Asked& asked : node.conditions) {
      chain_.conditions.push_back({asked.kind, Fill(asked.find, values_), asked.mode, asked.units});
    }
    joinable_ = false;
    Body(node.body);
    joinable_ = false;
    chain_.parts[guard].skip = chain_.parts.size();
  }

  FlatChain& chain_;
  std::map<std::string, Text> values_;
  bool joinable_ = false;
};

}  // namespace

FlatChain Expand(const ChainSource& source) {
  FlatChain chain;
  chain.name = source.name;
  chain.scan_namespace = source.scan_namespace;
  chain.state = source.state;
  Expander expander(chain);
  for (const StageSource& stage : source.stages) expander.Stage(stage);
  return chain;
}

}  // namespace quillary::rulec
