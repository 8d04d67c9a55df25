// The header of RTF: its character set and language, and the tables of fonts and colours.
#include <gtest/gtest.h>

#include <string>

#include "platform/rich_text/rich_text_cases.h"

namespace quillary::platform {
namespace {

void CheckHeaders(const std::vector<Case>& cases) {
  for (const Case& each : cases) EXPECT_EQ(Header(each.rtf), each.expected) << each.what;
}

TEST(DocumentHeader, ReadsCharacterSetAndLanguage) {
  CheckBodies({
      {"code pages of the machine", "{\\rtf1\\mac\\'8e\\'d5}", "\\pard\\fs24 \\'e9\\rquote "},
      {"code page 437", "{\\rtf1\\pc\\'82\\'9c}", "\\pard\\fs24 \\'e9\\'a3"},
      {"code page 850", "{\\rtf1\\pca\\'82\\'9c\\'b8}", "\\pard\\fs24 \\'e9\\'a3\\'a9"},
      {"no code page", "{\\rtf1\\ansi\\ansicpg0\\'e9}", "\\pard\\fs24 \\'e9"},
      {"a code page that is not known", "{\\rtf1\\ansi\\ansicpg99999\\'e9}", "\\pard\\fs24 \\'e9"},
  });
  CheckHeaders({
      {"the header of another", "{\\rtf1\\ansi\\ansicpg1250\\deflang1031\\fbidis x}",
       "{\\rtf1\\fbidis\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fnil\\fcharset0 Times New "
       "Roman;}}\r\n"},
      {"Greek", "{\\rtf1\\ansi\\deflang1032 x}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 Times New Roman;}}\r\n"},
      {"Turkish", "{\\rtf1\\ansi\\deflang1055 x}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 Times New Roman;}}\r\n"},
      {"no language", "{\\rtf1\\ansi\\deflang0 x}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 Times New Roman;}}\r\n"},
      {"a language out of range", "{\\rtf1\\ansi\\deflang70000 x}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 Times New Roman;}}\r\n"},
  });
}

TEST(DocumentHeader, ReadsFonts) {
  CheckBodies({
      {"the default font", "{\\rtf1\\ansi\\deff5{\\fonttbl{\\f4 A;}{\\f5 B;}}x\\f4 y\\f9 z}",
       "\\pard\\f1\\fs24 x\\f0 y\\f1 z"},
      {"no font but symbols",
       "{\\rtf1\\ansi\\ansicpg1251\\deff5{\\fonttbl{\\f4\\fcharset2 Symbol;}}x\\'e9\\f4 y}",
       "\\pard\\f1\\fs24 x\\u1081?\\f0 y\\lang1033 "},
  });
  CheckTexts({
      {"code pages of fonts",
       "{\\rtf1\\ansi\\ansicpg1250{\\fonttbl{\\f0\\cpg1251 A;}{\\f1\\fcharset161\\cpg1251 B;}{\\f2\\cpg9999 "
       "C;}{\\f3\\fcharset0 D;}{\\f4\\fcharset238 E;}{\\f5\\fcharset1 "
       "F;}}\\f0\\'e1\\f1\\'e1\\f2\\'b9\\f3\\'b9\\f4\\'b9\\f5\\'b9\\f9\\'b9}",
       "ббą¹ąą№"},
      {"a western charset in a document of its own page",
       "{\\rtf1\\ansi\\ansicpg1250{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset161 B;}}\\'b9\\f1\\'e1}",
       "ąα"},
      {"a western charset in a western document",
       "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset161 B;}}\\'b9\\f1\\'e1}",
       "¹α"},
  });
  CheckHeaders({
      {"the default font", "{\\rtf1\\ansi\\deff5{\\fonttbl{\\f4 A;}{\\f5 B;}}x\\f4 y\\f9 z}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil A;}{\\f1\\fnil B;}}\r\n"},
      {"no font but symbols",
       "{\\rtf1\\ansi\\ansicpg1251\\deff5{\\fonttbl{\\f4\\fcharset2 Symbol;}}x\\'e9\\f4 y}",
       "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset2 "
       "Symbol;}{\\f1\\fnil\\fcharset0 Times New Roman;}}\r\n"},
      {"families and pitches",
       "{\\rtf1{\\fonttbl{\\f0\\froman\\fprq1 A;}{\\f1\\fswiss\\fprq2 B;}{\\f2\\fmodern\\fprq3 "
       "C;}{\\f3\\fscript\\fprq0 D;}{\\f4\\fdecor E;}{\\f5\\ftech\\fbidi G;}{\\f6\\fnil H;}\\f7 "
       "I;\\f8\\froman J;}\\f0 a\\f1 b\\f2 c\\f3 d\\f4 e\\f5 f\\f6 g\\f7 h\\f8 i}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\froman\\fprq1 A;}{\\f1\\fswiss\\fprq2 "
       "B;}{\\f2\\fmodern C;}{\\f3\\fscript D;}{\\f4\\fdecor E;}{\\f5\\fnil G;}{\\f6\\fnil H;}{\\f7\\fnil "
       "I;}{\\f8\\froman J;}}\r\n"},
      {"charsets",
       "{\\rtf1{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset1 B;}{\\f2\\fcharset2 C;}{\\f3\\fcharset204 "
       "D;}{\\f4\\fcharset1 Wingdings;}{\\f5 symbol;}{\\f6\\fcharset0 Webdings;}{\\f7 Webdings;}}\\f0 a\\f1 "
       "b\\f2 c\\f3 d\\f4 e\\f5 f\\f6 g\\f7 h}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 A;}{\\f1\\fnil "
       "B;}{\\f2\\fnil\\fcharset2 C;}{\\f3\\fnil\\fcharset0 D;}{\\f4\\fnil\\fcharset2 "
       "Wingdings;}{\\f5\\fnil\\fcharset2 symbol;}{\\f6\\fnil\\fcharset0 Webdings;}{\\f7\\fnil\\fcharset2 "
       "Webdings;}}\r\n"},
      {"names",
       "{\\rtf1{\\fonttbl{\\f0 Text before;}junk;{\\f1 @@ At Sign ;}{\\f2 ABC;}{\\f3 A1B;}{\\f4 123;}{\\f5 "
       "AB\\'e9;}{\\f6 A\\'99\\'7f\\'81C;}{\\f7 A long name of more than thirty-one characters;}{\\f8 "
       "a\\\\b\\{c\\}d;}{\\f9 abc;}{\\f10 ABCD;}{\\f11 AB;}}\\f0 a\\f1 b\\f2 c\\f3 d\\f4 e\\f5 f\\f6 g\\f7 "
       "h\\f8 i\\f9 j\\f10 k\\f11 l}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil Text before;}{\\f1\\fnil At Sign;}{\\f2\\fnil "
       "Abc;}{\\f3\\fnil A1b;}{\\f4\\fnil 123_;}{\\f5\\fnil ABé;}{\\f6\\fnil Arial;}{\\f7\\fnil A long name "
       "of more than thirty;}{\\f8\\fnil abcd;}{\\f9\\fnil abc;}{\\f10\\fnil ABCD;}{\\f11\\fnil AB;}}\r\n"},
      {"suffixes",
       "{\\rtf1{\\fonttbl{\\f0\\fcharset161 Arial Greek;}{\\f1\\fcharset162 Courier Tur;}{\\f2\\fcharset163 "
       "Tahoma (Vietnamese);}{\\f3\\fcharset177 Verdana (Hebrew);}{\\f4\\fcharset178 Georgia "
       "(Arabic);}{\\f5\\fcharset186 Palatino Baltic;}{\\f6\\fcharset204 Impact CYR;}{\\f7\\fcharset222 "
       "Lucida (Thai);}{\\f8\\fcharset238 Garamond CE;}{\\f9\\fcharset0 Kept CE;}{\\f10\\fcharset204  "
       "Cyr;}{\\f11\\fcharset181 Miriam (Hebrew);}{\\f12\\fcharset179 Naskh (Arabic);}{\\f13\\fcharset180 "
       "Kufi (Arabic);}}\\f0 a\\f1 b\\f2 c\\f3 d\\f4 e\\f5 f\\f6 g\\f7 h\\f8 i\\f9 j\\f10 k\\f11 l\\f12 "
       "m\\f13 n}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}{\\f1\\fnil\\fcharset0 "
       "Courier;}{\\f2\\fnil\\fcharset0 Tahoma;}{\\f3\\fnil\\fcharset0 Verdana;}{\\f4\\fnil\\fcharset0 "
       "Georgia;}{\\f5\\fnil\\fcharset0 Palatino;}{\\f6\\fnil\\fcharset0 Impact;}{\\f7\\fnil\\fcharset0 "
       "Lucida;}{\\f8\\fnil\\fcharset0 Garamond;}{\\f9\\fnil\\fcharset0 Kept CE;}{\\f10\\fnil\\fcharset0 "
       "Cyr;}{\\f11\\fnil\\fcharset0 Miriam;}{\\f12\\fnil\\fcharset0 Naskh;}{\\f13\\fnil\\fcharset0 "
       "Kufi;}}\r\n"},
      {"alternative names",
       "{\\rtf1{\\fonttbl{\\f0\\fcharset128 {\\*\\falt MS Gothic}\\u26126?;}{\\f1\\fcharset129 "
       "\\u44404?;}{\\f2\\fcharset129 \\u44404?\\u44404?;}{\\f3\\fcharset136 \\u26126?;}{\\f4\\fcharset134 "
       "\\u26126?;}{\\f5\\fcharset0 \\u26126?;}{\\f6 {\\*\\falt \\u26126?}\\u-30000?x;}{\\f7 {\\*\\falt  "
       "Spaced }\\u26126?;}{\\f8 \\u65?\\u128?\\u127?\\u70000?b;}{\\f9 \\u255?;}{\\f10{\\*\\falt Not "
       "this}Plain;}{\\f11 {\\*\\fname tagged;}\\'e9t;}{\\f12\\fcharset128 \\u256?;}{\\f13{\\*\\panose "
       "0102}{\\*\\falt {b}ig}\\u26126?;}}\\f0 a\\f1 b\\f2 c\\f3 d\\f4 e\\f5 f\\f6 g\\f7 h\\f8 i\\f9 j\\f10 "
       "k\\f11 l\\f12 m\\f13 n}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 MS Gothic;}{\\f1\\fnil\\fcharset0 "
       "Gulim;}{\\f2\\fnil\\fcharset0 PMingLiU;}{\\f3\\fnil\\fcharset0 SimSun;}{\\f4\\fnil\\fcharset0 "
       "Arial;}{\\f5\\fnil Arial;}{\\f6\\fnil Spaced;}{\\f7\\fnil b;}{\\f8\\fnil ÿ;}{\\f9\\fnil "
       "Plain;}{\\f10\\fnil ét;}{\\f11\\fnil\\fcharset0 MS Mincho;}{\\f12\\fnil big;}}\r\n"},
      {"words without a table entry",
       "{\\rtf1{\\fonttbl\\froman stray\\'e9;{\\f0 A;}more{\\f1\\fswiss B;}}\\f0 a\\f1 b}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\froman A;}{\\f1\\fswiss B;}}\r\n"},
  });
}

TEST(DocumentHeader, NamesFontsOfTheFarEastInLatinLetters) {
  struct {
    int charset;
    const char *own, *latin;
  } const cases[] = {
      {128, "\\'82l\\'82r \\'96\\'be\\'92\\'a9", "MS Mincho"},
      {128, "\\'82l\\'82r \\'82o\\'96\\'be\\'92\\'a9", "MS PMincho"},
      {128, "\\'82l\\'82r \\'83S\\'83V\\'83b\\'83N", "MS Gothic"},
      {128, "\\'82l\\'82r \\'82o\\'83S\\'83V\\'83b\\'83N", "MS PGothic"},
      {128, "\\'83\\'81\\'83C\\'83\\'8a\\'83I", "Meiryo"},
      {134, "\\'cb\\'ce\\'cc\\'e5", "SimSun"},
      {134, "\\'d0\\'c2\\'cb\\'ce\\'cc\\'e5", "NSimSun"},
      {134, "\\'ba\\'da\\'cc\\'e5", "SimHei"},
      {134, "\\'bf\\'ac\\'cc\\'e5", "KaiTi"},
      {134, "\\'bf\\'ac\\'cc\\'e5_GB2312", "KaiTi"},
      {134, "\\'b7\\'c2\\'cb\\'ce", "FangSong"},
      {134, "\\'b7\\'c2\\'cb\\'ce_GB2312", "FangSong"},
      {134, "\\'ce\\'a2\\'c8\\'ed\\'d1\\'c5\\'ba\\'da", "Microsoft YaHei"},
      {136, "\\'b7s\\'b2\\'d3\\'a9\\'fa\\'c5\\'e9", "PMingLiU"},
      {136, "\\'b2\\'d3\\'a9\\'fa\\'c5\\'e9", "MingLiU"},
      {136, "\\'bc\\'d0\\'b7\\'a2\\'c5\\'e9", "DFKai-SB"},
      {136, "\\'b7L\\'b3n\\'a5\\'bf\\'b6\\'c2\\'c5\\'e9", "Microsoft JhengHei"},
      {129, "\\'b1\\'bc\\'b8\\'b2", "Gulim"},
      {129, "\\'b1\\'bc\\'b8\\'b2\\'c3\\'bc", "GulimChe"},
      {129, "\\'b5\\'b8\\'bf\\'f2", "Dotum"},
      {129, "\\'b5\\'b8\\'bf\\'f2\\'c3\\'bc", "DotumChe"},
      {129, "\\'b9\\'d9\\'c5\\'c1", "Batang"},
      {129, "\\'b9\\'d9\\'c5\\'c1\\'c3\\'bc", "BatangChe"},
      {129, "\\'b1\\'c3\\'bc\\'ad", "Gungsuh"},
      {129, "\\'b8\\'bc\\'c0\\'ba \\'b0\\'ed\\'b5\\'f1", "Malgun Gothic"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(
        Header("{\\rtf1{\\fonttbl{\\f0\\fcharset" + std::to_string(each.charset) + " " + each.own + ";}}x}"),
        "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 " + std::string(each.latin) +
            ";}}\r\n");
  }
}

TEST(DocumentHeader, HoldsSoManyFontsAndColours) {
  std::string rtf = "{\\rtf1{\\fonttbl";
  for (int i = 0; i <= 65535; ++i) rtf += "\\f" + std::to_string(i) + " F" + std::to_string(i) + ";";
  rtf += "}{\\colortbl;";
  for (int i = 1; i <= 65536; ++i) {
    rtf += "\\red" + std::to_string(i % 256) + "\\green" + std::to_string(i / 256 % 256) + "\\blue" +
           std::to_string(i / 65536) + ";";
  }
  rtf += "}\\f65533\\cf65534 a\\f65534\\cf65535 b\\f65535\\cf65536 c}";
  EXPECT_EQ(Header(rtf),
            "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil F0;}{\\f1\\fnil F65533;}}\r\n"
            "{\\colortbl ;\\red254\\green255\\blue0;}\r\n");
  EXPECT_EQ(Body(rtf), "\\pard\\cf1\\f1\\fs24 a\\cf0\\f0 bc");
}

TEST(DocumentHeader, CutsNames) {
  const auto name = [](const std::string& own) {
    const std::string header = Header("{\\rtf1{\\fonttbl{\\f0" + own + "}}x}");
    return header.substr(header.rfind(' ') + 1);
  };
  EXPECT_EQ(name(" abcdefghijklmnopqrstuvwxyzabcd efg;"), "abcdefghijklmnopqrstuvwxyzabcd;}}\r\n")
      << "and trims";
  EXPECT_EQ(name(" abc}{\\f1 def;"), "abc;}}\r\n") << "an entry ends where the next begins";
}

TEST(DocumentHeader, ReadsColours) {
  CheckBodies({
      {"colours",
       "{\\rtf1{\\fonttbl{\\f0 "
       "A;}}{\\colortbl;\\red300\\green-1\\blue5;\\green7;\\blue9;\\red1\\green2\\blue3;"
       "\\red1\\green2\\blue3;;\\red9}\\cf1 a\\cf2 b\\cf3 c\\cf4 d\\cf5 e\\cf6 f\\cf7 g\\cf0 h}",
       "\\pard\\cf1\\f0\\fs24 a\\cf2 b\\cf3 c\\cf4 de\\cf0 fgh"},
  });
  CheckHeaders({
      {"colours",
       "{\\rtf1{\\fonttbl{\\f0 "
       "A;}}{\\colortbl;\\red300\\green-1\\blue5;\\green7;\\blue9;\\red1\\green2\\blue3;"
       "\\red1\\green2\\blue3;;\\red9}\\cf1 a\\cf2 b\\cf3 c\\cf4 d\\cf5 e\\cf6 f\\cf7 g\\cf0 h}",
       "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil A;}}\r\n{\\colortbl "
       ";\\red255\\green0\\blue5;\\red0\\green7\\blue0;\\red0\\green0\\blue9;\\red1\\green2\\blue3;}\r\n"},
  });
}

}  // namespace
}  // namespace quillary::platform
