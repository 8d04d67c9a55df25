#include "rules/explain.h"

#include "rules/listing.h"
#include "rules/run.h"

namespace quillary::rules {
namespace {

Text FromAscii(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

}  // namespace

std::vector<Firing> Explain(std::span<const Chain* const> chains, Text text) {
  FiringLog log;
  Rewriting rewriting(std::move(text));
  rewriting.set_log(&log);
  for (const Chain* chain : chains) Run(*chain, rewriting);
  return log.firings();
}

Text Shown(TextView literal) {
  Text shown = u"⟨";
  for (std::size_t i = 0; i < literal.size(); ++i) {
    if (literal.substr(i).starts_with(u"\r\n")) {
      shown += u'⏎';
      ++i;
    } else {
      const char16_t unit = literal[i];
      shown += unit == u' ' ? u'␣' : unit == u'\r' ? u'␍' : unit == u'\n' ? u'␊' : unit;
    }
  }
  return shown + u'⟩';
}

Text Described(const Firing& firing) {
  const Rule& rule = *firing.rule;
  const Stage& stage = firing.chain->stages[static_cast<std::size_t>(firing.stage) - 1];
  return FromAscii(Where(*firing.chain, rule)) + u"  " + FromAscii(firing.chain->name) + u"/" +
         Decimal(firing.stage) + u" " + FromAscii(stage.name) + u"  x" +
         Decimal(static_cast<std::int64_t>(firing.count)) + u"\n  rule    " + Shown(rule.find) + u" -> " +
         Shown(rule.with) + u"\n  before  " + Shown(firing.before) + u"\n  after   " + Shown(firing.after) +
         u"\n";
}

}  // namespace quillary::rules
