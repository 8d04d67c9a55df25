// The rich text control: RTF or plain text in, canonical RTF or plain text out.
#include "platform/rich_text/rich_text_box.h"
#include "registry.h"

namespace quillary::routine {

void AddRichTextRoutines(Registry& registry) {
  registry.Add("rtf1.TextRTF", {Kind::Text}, [](Call& call) {
    const auto control = call.apartment().services.rich_text_box();
    control->SetTextRTF(call.text(0));
    call.result = ToJson(control->TextRTF());
  });
  registry.Add("rtf1.Text", {Kind::Text}, [](Call& call) {
    const auto control = call.apartment().services.rich_text_box();
    control->SetTextRTF(call.text(0));
    call.result = ToJson(control->PlainText());
  });
  registry.Add("rtf1.TextRTFOfText", {Kind::Text}, [](Call& call) {
    const auto control = call.apartment().services.rich_text_box();
    control->SetText(call.text(0));
    call.result = ToJson(control->TextRTF());
  });
}

}  // namespace quillary::routine
