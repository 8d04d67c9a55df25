// The public class: its properties, and the conversions with their exceptions
// turned into those that a host can catch.
#include "quillary/Quillaryv8.h"

#include <utility>

#include "component/conversions.h"
#include "component/file_to_string.h"
#include "component/persistence.h"
#include "component/public_errors.h"

namespace quillary {

std::shared_ptr<Apartment> MakeApartment(const Access& access) {
  auto apartment = std::make_shared<Apartment>();
  const auto fetching = access.downloads ? platform::Fetching::PublicHosts : platform::Fetching::Off;
  apartment->services = platform::Services::System(fetching, access.folders);
  return apartment;
}

PropertyBag::~PropertyBag() = default;

struct Quillaryv8::Data {
  component::Properties properties;
  std::shared_ptr<Apartment> apartment;  // null: the calling thread's
};

namespace {

Apartment& ThreadApartment() {
  thread_local Apartment apartment;
  return apartment;
}

using Conversion = Text (*)(Apartment&, component::Properties&);

Text Run(Conversion conversion, const std::shared_ptr<Apartment>& apartment,
         component::Properties& properties) {
  try {
    return conversion(apartment ? *apartment : ThreadApartment(), properties);
  } catch (const Failure& failure) {
    throw PublicError(failure);
  } catch (const LimitReached& reached) {
    throw PublicError(reached);
  }
}

}  // namespace

Quillaryv8::Quillaryv8() : Quillaryv8(nullptr) {}
Quillaryv8::Quillaryv8(std::shared_ptr<Apartment> apartment) : data_(std::make_unique<Data>()) {
  component::Class_InitProperties(data_->properties);
  data_->apartment = std::move(apartment);
}
Quillaryv8::Quillaryv8(Quillaryv8&& other) noexcept = default;
Quillaryv8& Quillaryv8::operator=(Quillaryv8&& other) noexcept = default;
Quillaryv8::~Quillaryv8() = default;

std::u16string Quillaryv8::ConvertRawHtml() {
  return Run(component::ConvertRawHtml, data_->apartment, data_->properties);
}
std::u16string Quillaryv8::ConvertRTFPlain() {
  return Run(component::ConvertRTFPlain, data_->apartment, data_->properties);
}
std::u16string Quillaryv8::ConvertPlainHTML() {
  return Run(component::ConvertPlainHTML, data_->apartment, data_->properties);
}
std::u16string Quillaryv8::ConvertRTFHeader() {
  return Run(component::ConvertRTFHeader, data_->apartment, data_->properties);
}
std::u16string Quillaryv8::ConvertRTF() {
  return Run(component::ConvertRTF, data_->apartment, data_->properties);
}
std::u16string Quillaryv8::ConvertNoBody() {
  return Run(component::ConvertNoBody, data_->apartment, data_->properties);
}

std::u16string Quillaryv8::ConvertHTML2RTF() {
  return Run(component::ConvertHTML2RTF, data_->apartment, data_->properties);
}

std::u16string Quillaryv8::FileToString(std::u16string_view SourceFile) {
  return component::FileToString(data_->apartment ? *data_->apartment : ThreadApartment(), SourceFile);
}

void Quillaryv8::ReadProperties(PropertyBag& bag) { component::Class_ReadProperties(data_->properties, bag); }
void Quillaryv8::WriteProperties(PropertyBag& bag) const {
  component::Class_WriteProperties(data_->properties, bag);
}

std::u16string Quillaryv8::Links() const { return data_->properties.Links; }
void Quillaryv8::Links(std::u16string_view sLinks) { data_->properties.Links = sLinks; }
void Quillaryv8::Links(LinkSearch search) {
  data_->properties.Links = search == LinkSearch::Full ? u"yes" : u"no";
}
std::u16string Quillaryv8::CleanRTF() const { return data_->properties.CleanRTF; }
void Quillaryv8::CleanRTF(std::u16string_view sCleanOn) { data_->properties.CleanRTF = sCleanOn; }
void Quillaryv8::CleanRTF(RichTextControl use) {
  data_->properties.CleanRTF = use == RichTextControl::Yes ? u"yes" : u"nono";
}
std::u16string Quillaryv8::CleanHTML() const { return data_->properties.CleanHTML; }
void Quillaryv8::CleanHTML(std::u16string_view sCleanHTML) { data_->properties.CleanHTML = sCleanHTML; }
void Quillaryv8::CleanHTML(Switch on) { data_->properties.CleanHTML = on == Switch::Yes ? u"yes" : u"no"; }
std::u16string Quillaryv8::XHTMLOutput() const { return data_->properties.XHTMLOutput; }
void Quillaryv8::XHTMLOutput(std::u16string_view sXHTMLOutput) {
  data_->properties.XHTMLOutput = sXHTMLOutput;
}
void Quillaryv8::XHTMLOutput(Switch on) {
  data_->properties.XHTMLOutput = on == Switch::Yes ? u"yes" : u"no";
}
std::u16string Quillaryv8::DoDebug() const { return data_->properties.DoDebug; }
void Quillaryv8::DoDebug(std::u16string_view sDebugOn) { data_->properties.DoDebug = sDebugOn; }
void Quillaryv8::DoDebug(Switch on) { data_->properties.DoDebug = on == Switch::Yes ? u"yes" : u"no"; }
std::u16string Quillaryv8::RTF_Text() const { return data_->properties.RTF_Text; }
void Quillaryv8::RTF_Text(std::u16string_view sRTF_Text) { data_->properties.RTF_Text = sRTF_Text; }
void Quillaryv8::RTF_Text(std::u8string_view rtf) { data_->properties.RTF_Text = RtfOf(rtf); }
void Quillaryv8::RTF_Text(Bytes file) { data_->properties.RTF_Text = TextOf(file); }
std::u16string Quillaryv8::Plain_Text() const { return data_->properties.Plain_Text; }
void Quillaryv8::Plain_Text(std::u16string_view sPlain_Text) { data_->properties.Plain_Text = sPlain_Text; }
void Quillaryv8::Plain_Text(std::u8string_view text) { data_->properties.Plain_Text = TextOf(text); }
void Quillaryv8::Plain_Text(Bytes file) { data_->properties.Plain_Text = TextOf(file); }
std::u16string Quillaryv8::HTML_Text() const { return data_->properties.HTML_Text; }
void Quillaryv8::HTML_Text(std::u16string_view sHTML_Text) { data_->properties.HTML_Text = sHTML_Text; }
void Quillaryv8::HTML_Text(std::u8string_view html) { data_->properties.HTML_Text = HtmlOf(html); }
void Quillaryv8::HTML_Text(Bytes file) { data_->properties.HTML_Text = TextOf(file); }
std::u16string Quillaryv8::HTML_Title() const { return data_->properties.HTML_Title; }
void Quillaryv8::HTML_Title(std::u16string_view sHTML_Title) { data_->properties.HTML_Title = sHTML_Title; }
void Quillaryv8::HTML_Title(std::u8string_view text) { data_->properties.HTML_Title = TextOf(text); }
std::u16string Quillaryv8::HTML_Colour() const { return data_->properties.HTML_Colour; }
void Quillaryv8::HTML_Colour(std::u16string_view sHTML_Colour) {
  data_->properties.HTML_Colour = sHTML_Colour;
}
void Quillaryv8::HTML_Colour(std::u8string_view text) { data_->properties.HTML_Colour = TextOf(text); }
std::u16string Quillaryv8::Generator() const { return data_->properties.Generator; }
void Quillaryv8::Generator(std::u16string_view sGenerator) { data_->properties.Generator = sGenerator; }
void Quillaryv8::Generator(std::u8string_view text) { data_->properties.Generator = TextOf(text); }
std::u16string Quillaryv8::ConvertImages() const { return data_->properties.ConvertImages; }
void Quillaryv8::ConvertImages(std::u16string_view sConvertImages) {
  data_->properties.ConvertImages = sConvertImages;
}
void Quillaryv8::ConvertImages(Switch on) {
  data_->properties.ConvertImages = on == Switch::Yes ? u"yes" : u"no";
}
std::u16string Quillaryv8::ImageFolder() const { return data_->properties.ImageFolder; }
void Quillaryv8::ImageFolder(std::u16string_view sImageFolder) {
  data_->properties.ImageFolder = sImageFolder;
}
void Quillaryv8::ImageFolder(std::u8string_view text) { data_->properties.ImageFolder = TextOf(text); }
std::u16string Quillaryv8::ImageFormat() const { return data_->properties.ImageFormat; }
void Quillaryv8::ImageFormat(std::u16string_view sImageFormat) {
  data_->properties.ImageFormat = sImageFormat;
}
void Quillaryv8::ImageFormat(PictureFormat format) {
  data_->properties.ImageFormat = format == PictureFormat::Png ? u"png" : u"jpeg";
}
std::u16string Quillaryv8::ImageName() const { return data_->properties.ImageName; }
void Quillaryv8::ImageName(std::u16string_view sImageName) { data_->properties.ImageName = sImageName; }
void Quillaryv8::ImageName(std::u8string_view text) { data_->properties.ImageName = TextOf(text); }
std::u16string Quillaryv8::UseSpanTags() const { return data_->properties.UseSpanTags; }
void Quillaryv8::UseSpanTags(std::u16string_view sUseSpanTags) {
  data_->properties.UseSpanTags = sUseSpanTags;
}
void Quillaryv8::UseSpanTags(Switch on) {
  data_->properties.UseSpanTags = on == Switch::Yes ? u"yes" : u"no";
}
std::u16string Quillaryv8::UseFontTags() const { return data_->properties.UseFontTags; }
void Quillaryv8::UseFontTags(std::u16string_view sUseFontTags) {
  data_->properties.UseFontTags = sUseFontTags;
}
void Quillaryv8::UseFontTags(Switch on) {
  data_->properties.UseFontTags = on == Switch::Yes ? u"yes" : u"no";
}
std::u16string Quillaryv8::TableBorders() const { return data_->properties.TableBorders; }
void Quillaryv8::TableBorders(std::u16string_view sTableBorders) {
  data_->properties.TableBorders = sTableBorders;
}
void Quillaryv8::TableBorders(Switch on) { data_->properties.TableBorders = on == Switch::Yes ? u"1" : u"0"; }

}  // namespace quillary
