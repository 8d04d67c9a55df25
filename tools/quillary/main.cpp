// quillary: converts documents on the command line.
#include <CLI/CLI.hpp>
#include <iostream>
#include <map>
#include <span>

#include "commands.h"
#include "documents.h"
#include "explain.h"
#include "quillary/version.h"
#include "text/encodings.h"

namespace quillary::command_line {
namespace {

struct PropertyOption {
  const char* option;
  Text component::Properties::*text;
  const char* help;
};

using component::Properties;

constexpr PropertyOption kPropertiesToHtml[] = {
    {"--links", &Properties::Links, "link recognition: yes (full), any other word simple"},
    {"--clean-rtf", &Properties::CleanRTF,
     "nono takes the RTF as it is, without bringing it to canonical form"},
    {"--clean-html", &Properties::CleanHTML, "yes passes the page through the HTML cleaner"},
    {"--xhtml-output", &Properties::XHTMLOutput, "yes has the HTML cleaner write XHTML"},
    {"--do-debug", &Properties::DoDebug, "yes writes the input to rtftext.txt in the temporary folder"},
    {"--html-title", &Properties::HTML_Title, "title of the page, taken as HTML"},
    {"--html-colour", &Properties::HTML_Colour, "background: a name, a colour number or rrggbb"},
    {"--generator", &Properties::Generator, "name in the generator element"},
    {"--convert-images", &Properties::ConvertImages,
     "yes writes pictures to files, any other word drops them"},
    {"--image-format", &Properties::ImageFormat, "png, any other word jpeg"},
    {"--image-name", &Properties::ImageName, "beginning of the names of the picture files"},
    {"--use-span-tags", &Properties::UseSpanTags, "yes writes spans with styles in place of fonts"},
    {"--use-font-tags", &Properties::UseFontTags, "no leaves out fonts"},
    {"--table-borders", &Properties::TableBorders, "borders of tables in RTF made from HTML: 1 or 0"},
};

constexpr PropertyOption kPropertiesToRtf[] = {
    {"--table-borders", &Properties::TableBorders, "yes gives all tables borders, no none"},
};

const std::map<std::string, Encoding> kEncodings = {
    {"ascii", Encoding::Ascii}, {"utf-8", Encoding::Utf8}, {"windows-1252", Encoding::Windows1252}};

// A word of the command line as a text; the shell hands over UTF-8.
void AddPropertyOption(CLI::App& app, const PropertyOption& option, Properties& properties) {
  Text& target = properties.*(option.text);
  app.add_option_function<std::string>(
         option.option, [&target](const std::string& word) { target = FromUtf8(word); }, option.help)
      ->type_name("WORD")
      ->default_str(ToUtf8(target))
      ->group("Properties");
}

void AddProperties(CLI::App& app, Properties& properties, std::span<const PropertyOption> options) {
  component::Class_InitProperties(properties);
  for (const PropertyOption& option : options) AddPropertyOption(app, option, properties);
}

void AddImageFolder(CLI::App& app, std::string& folder, const char* help) {
  app.add_option("--image-folder", folder, help)->type_name("PATH")->group("Properties");
}

void AddFiles(CLI::App& app, std::vector<std::string>& documents, std::string& output) {
  app.add_option("FILE", documents, "documents; - or none is standard input");
  app.add_option("-o,--output", output, "file, or folder with a file for each document; else standard output")
      ->type_name("PATH");
}

void AddDocuments(CLI::App& app, std::vector<std::string>& documents, std::string& output,
                  Encoding& encoding) {
  AddFiles(app, documents, output);
  app.add_option("--encoding", encoding, "encoding of the result: ascii, utf-8 or windows-1252")
      ->transform(CLI::CheckedTransformer(kEncodings, CLI::ignore_case).description(""))
      ->type_name("NAME");
}

CLI::App* AddToHtml(CLI::App& app, ToHtml& command) {
  CLI::App* to_html = app.add_subcommand("to-html", "convert RTF to a page");
  AddDocuments(*to_html, command.documents, command.output, command.encoding);
  auto* kinds = to_html->add_option_group("Kind of page", "a whole page, unless one of these is given");
  const auto add_kind = [&](const char* flag, Kind kind, const char* help) {
    kinds->add_flag_callback(
        flag, [&command, kind] { command.kind = kind; }, help);
  };
  add_kind("--fragment", Kind::Fragment, "what stands inside the body of the page");
  add_kind("--raw", Kind::Raw, "a fragment written without the shell of a page");
  add_kind("--header", Kind::Header, "the page header of the document alone");
  add_kind("--plain", Kind::PlainInput, "the input is plain text and no RTF");
  kinds->require_option(0, 1);
  to_html->add_flag("--trace", command.trace,
                    "a JSON line with the page after each step, in place of the page on standard output");
  AddProperties(*to_html, command.properties, kPropertiesToHtml);
  AddImageFolder(*to_html, command.image_folder,
                 "folder of the picture files; else PAGE_files beside each page");
  return to_html;
}

CLI::App* AddToText(CLI::App& app, ToText& command) {
  CLI::App* to_text = app.add_subcommand("to-text", "convert RTF to plain text");
  AddDocuments(*to_text, command.documents, command.output, command.encoding);
  return to_text;
}

CLI::App* AddToRtf(CLI::App& app, ToRtf& command) {
  CLI::App* to_rtf = app.add_subcommand("to-rtf", "convert a page to RTF");
  AddFiles(*to_rtf, command.documents, command.output);
  to_rtf->add_flag("--raw-input", command.raw_input,
                   "take the page as it is, without decoding it by the charset that it declares");
  to_rtf->add_flag("--trace", command.trace,
                   "a JSON line with the text after each step, in place of the document on standard output");
  to_rtf->add_flag("--fetch", command.fetch, "download the pictures that a page has on the web");
  AddProperties(*to_rtf, command.properties, kPropertiesToRtf);
  AddImageFolder(*to_rtf, command.image_folder,
                 "folder in which pictures and style sheets are looked for; else that of the page");
  return to_rtf;
}

CLI::App* AddExplain(CLI::App& app, Explain& command) {
  CLI::App* explain = app.add_subcommand("explain", "show which rules fire on an RTF document");
  explain->add_option("FILE", command.document, "the document; - is standard input")->required();
  explain->add_flag("--json", command.json, "one line of JSON for each rule");
  AddProperties(*explain, command.properties, kPropertiesToHtml);
  return explain;
}

template <class Command>
int RunOn(Command& command) {
  if (command.documents.empty()) command.documents = {"-"};
  return Run(command);
}

int Main(int count, char** values) {
  CLI::App app("Converts documents: RTF to HTML and to plain text, HTML to RTF.", "quillary");
  app.set_version_flag("--version", std::string("quillary ") + Version());
  app.require_subcommand(1);
  app.get_formatter()->column_width(34);
  ToHtml to_html;
  ToText to_text;
  ToRtf to_rtf;
  Explain explain;
  const CLI::App* chosen_html = AddToHtml(app, to_html);
  const CLI::App* chosen_text = AddToText(app, to_text);
  const CLI::App* chosen_rtf = AddToRtf(app, to_rtf);
  AddExplain(app, explain);
  try {
    app.parse(count, values);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : 2;
  }
  try {
    if (chosen_html->parsed()) return RunOn(to_html);
    if (chosen_rtf->parsed()) return RunOn(to_rtf);
    return chosen_text->parsed() ? RunOn(to_text) : Run(explain);
  } catch (const FileError& error) {
    std::cerr << "quillary: " << error.what() << '\n';
    return 2;
  }
}

}  // namespace
}  // namespace quillary::command_line

int main(int count, char** values) { return quillary::command_line::Main(count, values); }
