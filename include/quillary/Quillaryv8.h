// Quillary's public class: RTF to HTML, RTF to plain text, and HTML to RTF.
//
//     quillary::Quillaryv8 converter;
//     converter.RTF_Text(rtf);
//     std::u16string page = converter.ConvertRTF();
//
// A document is one text of 16-bit units. RTF read from a file has one unit for
// each byte, the Windows-1252 character of that byte; a page holds characters as
// they are, not as bytes of any encoding.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "quillary/export.h"

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

/// A document is beyond a limit: too long, growing too much, nested too deep,
/// with too many pictures, or taking too long.
class QUILLARY_API ConversionLimit : public ConversionError {
 public:
  enum class Limit { Input, Growth, Nesting, Pictures, Time };

  ConversionLimit(Limit limit, std::string words);
  ~ConversionLimit() override;

  Limit limit() const noexcept { return limit_; }

 private:
  Limit limit_;
};

struct Apartment;

/// A new apartment: the state that conversions share and leave to each other,
/// such as the fonts of the last document for a document without a font table.
QUILLARY_API std::shared_ptr<Apartment> MakeApartment();

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

  // The properties, each read by the form without an argument and written by the
  // other. Writing checks nothing and throws nothing but std::bad_alloc. Flags
  // are words such as "yes" and "no", in any case.

  /// Link recognition: "yes" and "" the full recognisers, anything else the
  /// simple ones. At first "yes".
  std::u16string Links() const;
  void Links(std::u16string_view sLinks);

  /// "nono" hands the RTF to the conversion as it is; any other word ("no" too)
  /// passes it through the rich text control first. At first "yes".
  std::u16string CleanRTF() const;
  void CleanRTF(std::u16string_view sCleanOn);

  /// "yes" passes the result through the HTML cleaner. At first "no".
  std::u16string CleanHTML() const;
  void CleanHTML(std::u16string_view sCleanHTML);

  /// "yes" has the HTML cleaner write XHTML, whatever CleanHTML says. At first "no".
  std::u16string XHTMLOutput() const;
  void XHTMLOutput(std::u16string_view sXHTMLOutput);

  /// "yes" writes the input to rtftext.txt in the temporary folder. At first "no".
  std::u16string DoDebug() const;
  void DoDebug(std::u16string_view sDebugOn);

  /// The RTF to convert. Empty after each conversion to HTML.
  std::u16string RTF_Text() const;
  void RTF_Text(std::u16string_view sRTF_Text);

  /// The plain text to convert.
  std::u16string Plain_Text() const;
  void Plain_Text(std::u16string_view sPlain_Text);

  /// The page of the last conversion.
  std::u16string HTML_Text() const;
  void HTML_Text(std::u16string_view sHTML_Text);

  /// The title of the page, taken as HTML. At first "Morvanta Quillary".
  std::u16string HTML_Title() const;
  void HTML_Title(std::u16string_view sHTML_Title);

  /// The background of the page: a name, a colour number with blue in its high
  /// byte, a system colour number, or six digits rrggbb. At first "white"; a
  /// conversion leaves the digits that it used.
  std::u16string HTML_Colour() const;
  void HTML_Colour(std::u16string_view sHTML_Colour);

  /// The name in the page's generator element. At first "Morvanta Software
  /// Corporation Quillary".
  std::u16string Generator() const;
  void Generator(std::u16string_view sGenerator);

  /// "yes" writes the pictures of a document to files and links them from the
  /// page; any other word drops them. At first "yes".
  std::u16string ConvertImages() const;
  void ConvertImages(std::u16string_view sConvertImages);

  /// The folder of the picture files. At first "c:\windows\temp\", which means
  /// the system's temporary folder.
  std::u16string ImageFolder() const;
  void ImageFolder(std::u16string_view sImageFolder);

  /// "png"; any other word means jpeg. At first "png".
  std::u16string ImageFormat() const;
  void ImageFormat(std::u16string_view sImageFormat);

  /// The beginning of the names of the picture files, which go on with three
  /// digits from 000. At first "object".
  std::u16string ImageName() const;
  void ImageName(std::u16string_view sImageName);

  /// "yes" writes spans with styles in place of font elements. At first "no".
  std::u16string UseSpanTags() const;
  void UseSpanTags(std::u16string_view sUseSpanTags);

  /// "no" leaves out font elements, unless UseSpanTags is "yes". At first "yes".
  std::u16string UseFontTags() const;
  void UseFontTags(std::u16string_view sUseFontTags);

  /// The border of tables in RTF made from HTML, "1" or "0". At first "1".
  std::u16string TableBorders() const;
  void TableBorders(std::u16string_view sTableBorders);

 private:
  struct Data;
  std::unique_ptr<Data> data_;
};

}  // namespace quillary
