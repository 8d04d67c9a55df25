// The public class: its properties, and the conversions with their exceptions
// turned into those that a host can catch.
#include "quillary/Quillaryv8.h"

#include <utility>

#include "component/conversions.h"

namespace quillary {

ConversionError::ConversionError(std::string words) : words_(std::move(words)) {}
ConversionError::~ConversionError() = default;
const char* ConversionError::what() const noexcept { return words_.c_str(); }

ConversionFailed::ConversionFailed(Kind kind, std::uint32_t code, std::string source, std::string words)
    : ConversionError(std::move(words)), kind_(kind), code_(code), source_(std::move(source)) {}
ConversionFailed::~ConversionFailed() = default;

ConversionLimit::ConversionLimit(Limit limit, std::string words)
    : ConversionError(std::move(words)), limit_(limit) {}
ConversionLimit::~ConversionLimit() = default;

std::shared_ptr<Apartment> MakeApartment() { return std::make_shared<Apartment>(); }

struct Quillaryv8::Data {
  component::Properties properties;
  std::shared_ptr<Apartment> apartment;  // null: the calling thread's
};

namespace {

ConversionFailed::Kind PublicKind(Failure::Kind kind) {
  switch (kind) {
    case Failure::Kind::Overflow:
      return ConversionFailed::Kind::Overflow;
    case Failure::Kind::Argument:
      return ConversionFailed::Kind::Argument;
    case Failure::Kind::Subscript:
      return ConversionFailed::Kind::Subscript;
    case Failure::Kind::Type:
      return ConversionFailed::Kind::Type;
    case Failure::Kind::Raised:
      break;
  }
  return ConversionFailed::Kind::Raised;
}

ConversionLimit::Limit PublicLimit(LimitReached::Limit limit) {
  switch (limit) {
    case LimitReached::Limit::Input:
      return ConversionLimit::Limit::Input;
    case LimitReached::Limit::Growth:
      return ConversionLimit::Limit::Growth;
    case LimitReached::Limit::Nesting:
      return ConversionLimit::Limit::Nesting;
    case LimitReached::Limit::Pictures:
      return ConversionLimit::Limit::Pictures;
    case LimitReached::Limit::Time:
      break;
  }
  return ConversionLimit::Limit::Time;
}

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
    throw ConversionFailed(PublicKind(failure.kind()), failure.code(), failure.source(), failure.what());
  } catch (const LimitReached& reached) {
    throw ConversionLimit(PublicLimit(reached.limit()), reached.what());
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

std::u16string Quillaryv8::Links() const { return data_->properties.Links; }
void Quillaryv8::Links(std::u16string_view sLinks) { data_->properties.Links = sLinks; }
std::u16string Quillaryv8::CleanRTF() const { return data_->properties.CleanRTF; }
void Quillaryv8::CleanRTF(std::u16string_view sCleanOn) { data_->properties.CleanRTF = sCleanOn; }
std::u16string Quillaryv8::CleanHTML() const { return data_->properties.CleanHTML; }
void Quillaryv8::CleanHTML(std::u16string_view sCleanHTML) { data_->properties.CleanHTML = sCleanHTML; }
std::u16string Quillaryv8::XHTMLOutput() const { return data_->properties.XHTMLOutput; }
void Quillaryv8::XHTMLOutput(std::u16string_view sXHTMLOutput) {
  data_->properties.XHTMLOutput = sXHTMLOutput;
}
std::u16string Quillaryv8::DoDebug() const { return data_->properties.DoDebug; }
void Quillaryv8::DoDebug(std::u16string_view sDebugOn) { data_->properties.DoDebug = sDebugOn; }
std::u16string Quillaryv8::RTF_Text() const { return data_->properties.RTF_Text; }
void Quillaryv8::RTF_Text(std::u16string_view sRTF_Text) { data_->properties.RTF_Text = sRTF_Text; }
std::u16string Quillaryv8::Plain_Text() const { return data_->properties.Plain_Text; }
void Quillaryv8::Plain_Text(std::u16string_view sPlain_Text) { data_->properties.Plain_Text = sPlain_Text; }
std::u16string Quillaryv8::HTML_Text() const { return data_->properties.HTML_Text; }
void Quillaryv8::HTML_Text(std::u16string_view sHTML_Text) { data_->properties.HTML_Text = sHTML_Text; }
std::u16string Quillaryv8::HTML_Title() const { return data_->properties.HTML_Title; }
void Quillaryv8::HTML_Title(std::u16string_view sHTML_Title) { data_->properties.HTML_Title = sHTML_Title; }
std::u16string Quillaryv8::HTML_Colour() const { return data_->properties.HTML_Colour; }
void Quillaryv8::HTML_Colour(std::u16string_view sHTML_Colour) {
  data_->properties.HTML_Colour = sHTML_Colour;
}
std::u16string Quillaryv8::Generator() const { return data_->properties.Generator; }
void Quillaryv8::Generator(std::u16string_view sGenerator) { data_->properties.Generator = sGenerator; }
std::u16string Quillaryv8::ConvertImages() const { return data_->properties.ConvertImages; }
void Quillaryv8::ConvertImages(std::u16string_view sConvertImages) {
  data_->properties.ConvertImages = sConvertImages;
}
std::u16string Quillaryv8::ImageFolder() const { return data_->properties.ImageFolder; }
void Quillaryv8::ImageFolder(std::u16string_view sImageFolder) {
  data_->properties.ImageFolder = sImageFolder;
}
std::u16string Quillaryv8::ImageFormat() const { return data_->properties.ImageFormat; }
void Quillaryv8::ImageFormat(std::u16string_view sImageFormat) {
  data_->properties.ImageFormat = sImageFormat;
}
std::u16string Quillaryv8::ImageName() const { return data_->properties.ImageName; }
void Quillaryv8::ImageName(std::u16string_view sImageName) { data_->properties.ImageName = sImageName; }
std::u16string Quillaryv8::UseSpanTags() const { return data_->properties.UseSpanTags; }
void Quillaryv8::UseSpanTags(std::u16string_view sUseSpanTags) {
  data_->properties.UseSpanTags = sUseSpanTags;
}
std::u16string Quillaryv8::UseFontTags() const { return data_->properties.UseFontTags; }
void Quillaryv8::UseFontTags(std::u16string_view sUseFontTags) {
  data_->properties.UseFontTags = sUseFontTags;
}
std::u16string Quillaryv8::TableBorders() const { return data_->properties.TableBorders; }
void Quillaryv8::TableBorders(std::u16string_view sTableBorders) {
  data_->properties.TableBorders = sTableBorders;
}

}  // namespace quillary
