#include "commands.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "apartment/apartment.h"
#include "component/conversions.h"
#include "fetched_files.h"
#include "for_each.h"
#include "page_pictures.h"
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

PagePictures PicturesOf(const ToHtml& command, const Output& output, const std::string& document) {
  if (!command.image_folder.empty()) {
    // Documents that share a folder would write the same files.
    const bool shared = command.documents.size() > 1;
    const std::filesystem::path folder = command.image_folder;
    return PagePictures::In(shared ? folder / std::filesystem::path(document).stem() : folder);
  }
  if (output.IsStandardOutput()) return PagePictures::Temporary();
  return PagePictures::Beside(output.PathOf(document, ".html"));
}

// A page may have its pictures and style sheets beside it, and they are looked for nowhere else.
void LookBesidePage(const ToRtf& command, const std::string& document, Apartment& apartment,
                    Properties& properties) {
  std::error_code error;
  std::filesystem::path folder = command.image_folder;
  if (folder.empty() && document != "-") folder = std::filesystem::path(document).parent_path();
  folder = folder.empty() ? std::filesystem::current_path(error) : std::filesystem::absolute(folder, error);
  properties.ImageFolder = FromUtf8((folder / "").string());
  apartment.services = platform::Services::System(platform::Fetching::Off, {folder});
  if (command.fetch) apartment.services = WithDownloads(std::move(apartment.services));
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
    PagePictures pictures = PicturesOf(command, output, document);
    pictures.Attach(apartment, properties);
    const Text page = pictures.WithLinks(ConvertAs(command.kind, apartment, properties));
    Warn(document, apartment.stopped_short);
    if (pictures.any() && output.IsStandardOutput()) {
      Say(document, "the pictures are in " + pictures.folder().string());
    }
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
    LookBesidePage(command, document, apartment, properties);
    properties.HTML_Text = command.raw_input ? FromWindows1252(bytes) : page_reader::ReadPage(bytes);
    const Text rtf = component::ConvertHTML2RTF(apartment, properties);
    Warn(document, apartment.stopped_short);
    if (command.trace && output.IsStandardOutput()) return;
    output.Write(document, ".rtf", EncodeRtf(rtf));
  });
}

}  // namespace quillary::command_line
