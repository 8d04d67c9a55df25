// Link recognition and the repairs of links.
#include "links/bracket_links.h"
#include "links/email_addresses.h"
#include "links/label_links.h"
#include "links/link_lists.h"
#include "links/picture_links.h"
#include "links/scan_links.h"
#include "registry.h"

namespace quillary::routine {
namespace {

// A routine that fills the lists of the state.
void AddLoader(Registry& registry, const char* name, void (*load)(RtfToHtmlState&)) {
  registry.Add(name, {}, [load](Call& call) { load(call.state()); });
}

// A scan that rewrites HtmlOut by a copy of it. A request that gives no HtmlOut
// means the copy.
void AddScan(Registry& registry, const char* name, void (*scan)(RtfToHtmlState&, TextView)) {
  registry.Add(name, {Kind::Text}, [scan](Call& call) {
    if (call.state().HtmlOut.text().empty()) call.state().HtmlOut.Assign(call.text(0));
    scan(call.state(), call.text(0));
  });
}

void AddRepair(Registry& registry, const char* name, Text (*repair)(TextView)) {
  registry.Add(name, {Kind::Text}, [repair](Call& call) { call.result = ToJson(repair(call.text(0))); });
}

}  // namespace

void AddLinkRoutines(Registry& registry) {
  AddLoader(registry, "LoadLinkPrefixes", links::LoadLinkPrefixes);
  AddLoader(registry, "LoadLinkDelimiters", links::LoadLinkDelimiters);
  AddLoader(registry, "LoadBracketPrefixes", links::LoadBracketPrefixes);
  AddLoader(registry, "LoadBracketDelimiters", links::LoadBracketDelimiters);
  AddScan(registry, "ScanLinks", links::ScanLinks);
  AddScan(registry, "ScanEmailAddresses", links::ScanEmailAddresses);
  AddScan(registry, "ScanBracketLinks", links::ScanBracketLinks);
  AddRepair(registry, "ExtractEmailAddress", links::ExtractEmailAddress);
  AddRepair(registry, "RepairLabelLinks", links::RepairLabelLinks);
  AddRepair(registry, "RepairLabelAnchors", links::RepairLabelAnchors);
  AddRepair(registry, "RepairPictureLinks", links::RepairPictureLinks);
  registry.Add("StripEmailFringe", {Kind::Text},
               [](Call& call) { call.result = ToJson(links::StripEmailFringe(call.text(0))); });
}

}  // namespace quillary::routine
