#include "commands.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "apartment/apartment.h"
#include "component/conversions.h"
#include "for_each.h"
#include "page_reader/page_reader.h"
#include "text/encodings.h"

namespace quillary::command_line {
namespace {

using component::Properties;

// Where a count of the rules stopped short of the document's end.
void Warn(const std::string& document, const StoppedShort& stopped) {
  if (stopped.segments) {
    Say(document, "warning: only the first 32,766 segments are in the page; the rest of the text is missing");
  }
  if (stopped.pictures)
    Say(document, "warning: only the first pictures were treated; later ones are missing");
  if (stopped.links) Say(document, "warning: only the first 1,995 links are live");
}

Text ConvertAs(Kind kind, Apartment& apartment, Properties& properties) {
  switch (kind) {
    case Kind::Fragment:
      return component::ConvertNoBody(apartment, properties);
    case Kind::Raw:
      return component::ConvertRawHtml(apartment, properties);
    case Kind::Header:
      return component::ConvertRTFHeader(apartment, properties);
    case Kind::PlainInput:
      return component::ConvertPlainHTML(apartment, properties);
    case Kind::Page:
      break;
  }
  return component::ConvertRTF(apartment, properties);
}

void WriteTraceLine(std::string_view step, TextView page, std::string_view failure) {
  nlohmann::ordered_json line = {{"step", step}, {"text", ToUtf8(page)}};
  if (!failure.empty()) line["failure"] = failure;
  std::cout << line.dump() << '\n';
}

}  // namespace

int Run(const ToHtml& command) {
  const Output output(command.output, command.documents.size());
  return ForEach(command.documents, [&](const std::string& document) {
    // A page must not depend on the document before it.
    Apartment apartment;
    if (command.trace) apartment.trace = WriteTraceLine;
    Properties properties = command.properties;
    Text& source = command.kind == Kind::PlainInput ? properties.Plain_Text : properties.RTF_Text;
    source = FromWindows1252(ReadDocument(document));
    const Text page = ConvertAs(command.kind, apartment, properties);
    Warn(document, apartment.stopped_short);
    if (command.trace && output.IsStandardOutput()) return;
    output.Write(document, ".html", EncodePage(page, command.encoding));
  });
}

int Run(const ToText& command) {
  const Output output(command.output, command.documents.size());
  return ForEach(command.documents, [&](const std::string& document) {
    Apartment apartment;
    Properties properties;
    component::Class_InitProperties(properties);
    properties.RTF_Text = FromWindows1252(ReadDocument(document));
    output.Write(document, ".txt",
                 EncodePlainText(component::ConvertRTFPlain(apartment, properties), command.encoding));
  });
}

int Run(const ToRtf& command) {
  const Output output(command.output, command.documents.size());
  return ForEach(command.documents, [&](const std::string& document) {
    Apartment apartment;
    if (command.trace) apartment.trace = WriteTraceLine;
    Properties properties = command.properties;
    const std::string bytes = ReadDocument(document);
    properties.HTML_Text = command.raw_input ? FromWindows1252(bytes) : page_reader::ReadPage(bytes);
    const Text rtf = component::ConvertHTML2RTF(apartment, properties);
    if (command.trace && output.IsStandardOutput()) return;
    output.Write(document, ".rtf", EncodeRtf(rtf));
  });
}

}  // namespace quillary::command_line
