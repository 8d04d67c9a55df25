// Quillary's public class: RTF to HTML, RTF to plain text, and HTML to RTF.
//
//     quillary::Quillaryv8 converter;
//     converter.RTF_Text(quillary::Bytes{rtf});  // a std::string_view over the bytes of a file
//     std::string page = quillary::EncodePage(converter.ConvertRTF(), quillary::Encoding::Utf8);
//
// A document is one text of 16-bit units. RTF read from a file has one unit for
// each byte, the Windows-1252 character of that byte; a page holds characters as
// they are, not as bytes of any encoding. quillary/encodings.h has the ways from
// bytes and back.
#pragma once

#include <cstdint>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "quillary/encodings.h"
#include "quillary/export.h"
#include "quillary/property_bag.h"
#include "quillary/version.h"

namespace quillary {

/// Everything a conversion throws is one of the two kinds below, or
/// std::bad_alloc. After any of them the object can be used again.
class QUILLARY_API ConversionError : public std::exception {
 public:
  explicit ConversionError(std::string words);
  ~ConversionError() override;
  const char* what() const noexcept override;

 private:
  std::string words_;
};

/// A conversion could not be done: the rich text control or the HTML cleaner
/// refused its text, or a step outside the driver failed. Steps inside the
/// driver that fail are skipped, and nothing is thrown.
class QUILLARY_API ConversionFailed : public ConversionError {
 public:
  enum class Kind { Overflow, Argument, Subscript, Type, Raised };

  ConversionFailed(Kind kind, std::uint32_t code, std::string source, std::string words);
  ~ConversionFailed() override;

  Kind kind() const noexcept { return kind_; }
  /// Code and source of a failure that a component raised; otherwise 0 and "".
  std::uint32_t code() const noexcept { return code_; }
  const std::string& source() const noexcept { return source_; }

 private:
  Kind kind_;
  std::uint32_t code_;
  std::string source_;
};

/// A document is beyond a limit.
class QUILLARY_API ConversionLimit : public ConversionError {
 public:
  enum class Limit {
    Input,     ///< over 268,435,456 units, or a page with over 1,000 linked style sheets
    Growth,    ///< a text under conversion over 256 times the input and over 16,777,216 units, or over
               ///< 536,870,912 units; merged cells or style rules that would grow so
    Nesting,   ///< a page with over 500 tables inside each other, or over 20,000 styled elements inside
               ///< the tags of others
    Pictures,  ///< a picture that cannot be drawn within the limits; plain pictures stand for those that
               ///< are merely too large, so no conversion gives this
  };

  ConversionLimit(Limit limit, std::string words);
  ~ConversionLimit() override;

  Limit limit() const noexcept { return limit_; }

 private:
  Limit limit_;
};

struct Apartment;

/// What conversions may reach. The class follows a document wherever it points
/// if nothing is said.
struct Access {
  /// Whether pictures of a page on the web are downloaded, from public hosts only.
  bool downloads = true;
  /// The folders in which files are read, and those below them; all if there are none.
  std::vector<std::filesystem::path> folders;
};

/// A new apartment: the state that conversions share and leave to each other,
/// such as the fonts of the last document for a document without a font table.
QUILLARY_API std::shared_ptr<Apartment> MakeApartment(const Access& access = {});

// The words of some properties as numbers; a property takes either.
enum class Switch { No, Yes };
enum class LinkSearch { Simple, Full };
enum class RichTextControl { No, Yes };
enum class PictureFormat { Jpeg, Png };

/// The converter. It holds eighteen texts and nothing else; a conversion takes
/// its input from one of them and changes some. One thread uses an object at a
/// time; objects in different apartments are independent.
///
/// Every text is copied in and out: the object keeps no reference to what it
/// was given, and what it returns belongs to the caller.
class QUILLARY_API Quillaryv8 {
 public:
  /// Works in the apartment of the thread that calls.
  Quillaryv8();
  /// Works in `apartment`, which must not be in use on two threads at once.
  explicit Quillaryv8(std::shared_ptr<Apartment> apartment);
  Quillaryv8(Quillaryv8&& other) noexcept;
  Quillaryv8& operator=(Quillaryv8&& other) noexcept;
  ~Quillaryv8();

  // The conversions. Each throws ConversionFailed and ConversionLimit; after a
  // throw the properties that the conversion writes are as they were, but for
  // the input, which may have been replaced by its canonical form.

  /// A fragment of a page from RTF_Text, without the document shell. The
  /// fragment also stands in HTML_Text, without what the HTML cleaner did.
  /// RTF_Text is empty afterwards, and HTML_Colour holds six digits.
  std::u16string ConvertRawHtml();

  /// The plain text of RTF_Text, with CR LF between paragraphs. RTF_Text holds
  /// the document in canonical form afterwards; Plain_Text is not touched.
  std::u16string ConvertRTFPlain();

  /// A whole page from Plain_Text, which is plain text and no RTF, and which is
  /// empty afterwards. The page also stands in HTML_Text.
  std::u16string ConvertPlainHTML();

  /// A whole page from the page header of RTF_Text, which stays as it is. Gives
  /// "" for a document without a header, and HTML_Text stays as it is then.
  std::u16string ConvertRTFHeader();

  /// A whole page from RTF_Text. RTF_Text is empty afterwards, HTML_Colour holds
  /// six digits, and HTML_Text the page without what the HTML cleaner did.
  std::u16string ConvertRTF();

  /// What stands inside the body of the page from RTF_Text; otherwise as
  /// ConvertRTF. Throws ConversionFailed for a cleaned page of less than 20 units.
  std::u16string ConvertNoBody();

  /// RTF from HTML_Text, which is empty afterwards. The document also stands in
  /// RTF_Text, and TableBorders holds "0" or "1". A page in bytes has one unit for
  /// each byte, as RTF has; characters beyond ASCII come out best as decimal entities.
  std::u16string ConvertHTML2RTF();

  /// A whole file as a text, one unit for each byte; "" if it cannot be read or
  /// is over 268,435,456 bytes. "\\" and "/" both separate folders in its name,
  /// and c:\windows\temp means the system's temporary folder. No property changes.
  std::u16string FileToString(std::u16string_view SourceFile);

  /// Restores the properties from a bag; one that the bag does not hold gets the
  /// value of a new object. A bag that throws ends it quietly, and the properties
  /// that come later stay as they were. Throws std::bad_alloc only.
  void ReadProperties(PropertyBag& bag);
  /// Saves all properties in a bag. Throws what the bag throws.
  void WriteProperties(PropertyBag& bag) const;

  // The properties, each read by the form without an argument and written by the
  // others. Writing units checks nothing and throws nothing but std::bad_alloc;
  // malformed UTF-8 throws ConversionFailed (argument), and the property stays as
  // it was. Flags are words such as "yes" and "no", in any case.

  /// Link recognition: "yes" and "" the full recognisers, anything else the
  /// simple ones. At first "yes".
  std::u16string Links() const;
  void Links(std::u16string_view sLinks);
  void Links(LinkSearch search);

  /// "nono" hands the RTF to the conversion as it is; any other word ("no" too)
  /// passes it through the rich text control first. At first "yes".
  std::u16string CleanRTF() const;
  void CleanRTF(std::u16string_view sCleanOn);
  void CleanRTF(RichTextControl use);

  /// "yes" passes the result through the HTML cleaner. At first "no".
  std::u16string CleanHTML() const;
  void CleanHTML(std::u16string_view sCleanHTML);
  void CleanHTML(Switch on);

  /// "yes" has the HTML cleaner write XHTML, whatever CleanHTML says. At first "no".
  std::u16string XHTMLOutput() const;
  void XHTMLOutput(std::u16string_view sXHTMLOutput);
  void XHTMLOutput(Switch on);

  /// "yes" writes the input to rtftext.txt in the temporary folder. At first "no".
  std::u16string DoDebug() const;
  void DoDebug(std::u16string_view sDebugOn);
  void DoDebug(Switch on);

  /// The RTF to convert. Empty after each conversion to HTML.
  std::u16string RTF_Text() const;
  void RTF_Text(std::u16string_view sRTF_Text);
  void RTF_Text(std::u8string_view rtf);
  void RTF_Text(Bytes file);

  /// The plain text to convert.
  std::u16string Plain_Text() const;
  void Plain_Text(std::u16string_view sPlain_Text);
  void Plain_Text(std::u8string_view text);
  void Plain_Text(Bytes file);

  /// The page of the last conversion, or the page to convert.
  std::u16string HTML_Text() const;
  void HTML_Text(std::u16string_view sHTML_Text);
  void HTML_Text(std::u8string_view html);
  void HTML_Text(Bytes file);

  /// The title of the page, taken as HTML. At first "Morvanta Quillary".
  std::u16string HTML_Title() const;
  void HTML_Title(std::u16string_view sHTML_Title);
  void HTML_Title(std::u8string_view text);

  /// The background of the page: a name, a colour number with blue in its high
  /// byte, a system colour number, or six digits rrggbb. At first "white"; a
  /// conversion leaves the digits that it used.
  std::u16string HTML_Colour() const;
  void HTML_Colour(std::u16string_view sHTML_Colour);
  void HTML_Colour(std::u8string_view text);

  /// The name in the page's generator element. At first "Morvanta Software
  /// Corporation Quillary".
  std::u16string Generator() const;
  void Generator(std::u16string_view sGenerator);
  void Generator(std::u8string_view text);

  /// "yes" writes the pictures of a document to files and links them from the
  /// page; any other word drops them. At first "yes".
  std::u16string ConvertImages() const;
  void ConvertImages(std::u16string_view sConvertImages);
  void ConvertImages(Switch on);

  /// The folder of the picture files, and of the style sheets and pictures of a page, with a
  /// separator at its end. At first "c:\windows\temp\", which means the system's temporary folder.
  std::u16string ImageFolder() const;
  void ImageFolder(std::u16string_view sImageFolder);
  void ImageFolder(std::u8string_view text);

  /// "png"; any other word means jpeg. At first "png".
  std::u16string ImageFormat() const;
  void ImageFormat(std::u16string_view sImageFormat);
  void ImageFormat(PictureFormat format);

  /// The beginning of the names of the picture files, which go on with three
  /// digits from 000. At first "object".
  std::u16string ImageName() const;
  void ImageName(std::u16string_view sImageName);
  void ImageName(std::u8string_view text);

  /// "yes" writes spans with styles in place of font elements. At first "no".
  std::u16string UseSpanTags() const;
  void UseSpanTags(std::u16string_view sUseSpanTags);
  void UseSpanTags(Switch on);

  /// "no" leaves out font elements, unless UseSpanTags is "yes". At first "yes".
  std::u16string UseFontTags() const;
  void UseFontTags(std::u16string_view sUseFontTags);
  void UseFontTags(Switch on);

  /// The border of tables in RTF made from HTML, "1" or "0"; a conversion takes "no" for "0" and
  /// every other word for "1". At first "1".
  std::u16string TableBorders() const;
  void TableBorders(std::u16string_view sTableBorders);
  void TableBorders(Switch on);

 private:
  struct Data;
  std::unique_ptr<Data> data_;
};

}  // namespace quillary
