// Pictures of RTF to files and back: the decoders on small bitmaps and metafiles, names and
// numbers of files, pictures that lie about themselves, and image files in pages.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "html_to_rtf/images/images.h"
#include "platform/fetcher/public_address.h"
#include "platform/picture_creator/image_header.h"
#include "platform/pictures/bitmap.h"
#include "platform/pictures/metafile.h"
#include "platform/pictures/picture_extractor.h"
#include "platform/services/services.h"
#include "text/encodings.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::platform {
namespace {

namespace fs = std::filesystem;

// Numbers in the order of bytes that Windows has.
std::string Words(std::initializer_list<int> words) {
  std::string bytes;
  for (const int word : words) bytes += {static_cast<char>(word), static_cast<char>(word >> 8)};
  return bytes;
}
std::string Longs(std::initializer_list<std::int64_t> longs) {
  std::string bytes;
  for (const std::int64_t number : longs) {
    bytes += Words({static_cast<int>(number & 0xFFFF), static_cast<int>(number >> 16 & 0xFFFF)});
  }
  return bytes;
}

std::string DibHeader(int width, int height, int bits, int compression, int colours) {
  return Longs({40, width, height}) + Words({1, bits}) + Longs({compression, 0, 0, 0, colours, 0});
}

// The pixels of an image as letters of their colours.
std::string Seen(const std::optional<Image>& image) {
  if (!image) return "none";
  std::string seen;
  for (std::size_t at = 0; at < image->pixels.size(); at += 4) {
    const int colour = image->pixels[at] << 16 | image->pixels[at + 1] << 8 | image->pixels[at + 2];
    seen += colour == 0xFF0000   ? 'r'
            : colour == 0xFF00   ? 'g'
            : colour == 0xFF     ? 'b'
            : colour == 0        ? 'k'
            : colour == 0xFFFFFF ? 'w'
                                 : '?';
    if (at / 4 % image->width == image->width - 1) seen += '/';
  }
  return seen;
}

TEST(Bitmaps, AreReadInAllDepths) {
  const std::string palette = Longs({0x000000, 0xFF0000, 0x00FF00, 0x0000FF});  // black, red, green, blue
  const struct {
    const char* name;
    std::string bytes;
    const char* seen;
  } cases[] = {
      {"one bit", DibHeader(3, 2, 1, 0, 2) + Longs({0, 0xFF0000}) + Longs({0x40, 0xA0}), "rkr/krk/"},
      {"four bits", DibHeader(3, 1, 4, 0, 4) + palette + Longs({0x3012}), "rgb/"},
      {"eight bits, from the top", DibHeader(2, -2, 8, 0, 4) + palette + Longs({0x0201, 0x0003}), "rg/bk/"},
      {"an index beyond the palette", DibHeader(2, 1, 8, 0, 2) + Longs({0, 0xFF0000}) + Longs({0x0901}),
       "rk/"},
      {"sixteen bits", DibHeader(2, 1, 16, 0, 0) + Words({0x7C00, 0x001F}), "rb/"},
      {"masks", DibHeader(2, 1, 16, 3, 0) + Longs({0xF800, 0x07E0, 0x001F}) + Words({0x07E0, 0xF800}), "gr/"},
      {"24 bits", DibHeader(1, 2, 24, 0, 0) + Longs({0xFF0000, 0x00FF00}), "g/r/"},
      {"32 bits", DibHeader(2, 1, 32, 0, 0) + Longs({0x0000FF, 0xFF0000}), "br/"},
      {"runs of bytes",
       DibHeader(4, 2, 8, 1, 4) + palette + Words({0x0102, 0x0302, 0x0000, 0x0300, 0x0201, 0x0003, 0x0100}),
       "rgbw/rrbb/"},
      {"runs of nibbles", DibHeader(5, 1, 4, 2, 4) + palette + Words({0x1203, 0x0202, 0x0030, 0x0100}),
       "rgrkg/"},
      {"a move", DibHeader(3, 2, 8, 1, 4) + palette + Words({0x0200, 0x0102, 0x0101, 0x0100}), "wwr/www/"},
      {"rows that are missing", DibHeader(1, 2, 24, 0, 0) + Longs({0xFF0000}), "w/r/"},
      {"the old header", Longs({12}) + Words({2, 1, 1, 1}) + std::string("\0\0\0\0\0\xFF", 6) + Longs({0x40}),
       "kr/"},
      {"no width", DibHeader(0, 1, 24, 0, 0), "none"},
      {"four billion", DibHeader(-1, -1, 24, 0, 0), "none"},
      {"too many pixels", DibHeader(0x7FFFFFFF, 0x7FFFFFFF, 1, 0, 0), "none"},
      {"a depth that does not exist", DibHeader(1, 1, 7, 0, 0), "none"},
      {"runs of another depth", DibHeader(1, 1, 24, 1, 0), "none"},
      {"nothing", "", "none"},
  };
  for (const auto& [name, bytes, seen] : cases) EXPECT_EQ(Seen(DecodeDib(bytes)), seen) << name;
  EXPECT_EQ(Seen(DecodeDeviceBitmap(std::string("\x40\0\xA0\0", 4), 3, 2, 2, 1)), "kwk/wkw/");
  EXPECT_EQ(Seen(DecodeDeviceBitmap("", 4000000000U, 2, 2, 1)), "none");
}

std::optional<Image> Wmf(std::string_view bytes, std::uint32_t width, std::uint32_t height) {
  double pixels = 1e9;
  return DrawWmf(bytes, width, height, pixels);
}
std::optional<Image> Emf(std::string_view bytes, std::uint32_t width, std::uint32_t height) {
  double pixels = 1e9;
  return DrawEmf(bytes, width, height, pixels);
}

std::string WmfRecord(int function, const std::string& parameters) {
  return Longs({static_cast<std::int64_t>(parameters.size() / 2 + 3)}) + Words({function}) + parameters;
}
std::string Wmf(const std::string& records) {
  return Words({1, 9, 0x300}) + Longs({0}) + Words({0}) + Longs({0}) + Words({0}) + records +
         WmfRecord(0, "");
}
std::string EmfRecord(std::int64_t type, const std::string& parameters) {
  return Longs({type, static_cast<std::int64_t>(parameters.size() + 8)}) + parameters;
}
// A device of ten pixels a millimetre, and a frame of 4 pixels each way.
std::string Emf(const std::string& records) {
  std::string header = Longs({0, 0, 3, 3, 0, 0, 40, 40}) + " EMF" + Longs({0x10000, 0, 0}) + Words({0, 0}) +
                       Longs({0, 0, 0, 1000, 1000, 100, 100});
  return EmfRecord(1, header) + records + EmfRecord(14, Longs({0, 0, 0}));
}

TEST(Metafiles, AreDrawnOrGiveTheirOnlyBitmap) {
  const std::string red_brush = WmfRecord(0x02FC, Words({0, 0x00FF, 0, 0})) + WmfRecord(0x012D, Words({0}));
  const std::string no_pen = WmfRecord(0x02FA, Words({5, 0, 0, 0, 0})) + WmfRecord(0x012D, Words({1}));
  const std::string window = WmfRecord(0x020B, Words({0, 0})) + WmfRecord(0x020C, Words({40, 40}));
  const std::string dib = DibHeader(2, 1, 32, 0, 0) + Longs({0xFF, 0xFF0000});
  const std::string stretch =
      WmfRecord(0x0F43, Longs({0xCC0020}) + Words({0, 1, 2, 0, 0, 40, 40, 0, 0}) + dib);
  EXPECT_EQ(Seen(Wmf(Wmf(window + red_brush + no_pen + WmfRecord(0x041B, Words({20, 40, 0, 0}))), 4, 4)),
            "rrrr/rrrr/wwww/wwww/");
  EXPECT_EQ(
      Seen(Wmf(Wmf(window + red_brush + no_pen + WmfRecord(0x0324, Words({3, 0, 0, 40, 0, 0, 40}))), 4, 4))
          .substr(0, 3),
      "rrr");
  EXPECT_EQ(Seen(Wmf(Wmf(window + stretch), 4, 4)), "br/");
  EXPECT_EQ(
      Seen(Wmf(Wmf(window + stretch + red_brush + no_pen + WmfRecord(0x041B, Words({40, 40, 0, 20}))), 4, 1))
          .substr(2),
      "rr/");
  const std::string placeable =
      Longs({0x9AC6CDD7}) + Words({0, 10, 10, 50, 50, 96}) + Longs({0}) + Words({0});
  EXPECT_EQ(Seen(Wmf(placeable + Wmf(red_brush + no_pen + WmfRecord(0x041B, Words({50, 30, 10, 10}))), 2, 1)),
            "rw/");

  const std::string blue = EmfRecord(39, Longs({1, 0, 0xFF0000, 0})) + EmfRecord(37, Longs({1})) +
                           EmfRecord(37, Longs({0x80000008}));
  EXPECT_EQ(Seen(Emf(Emf(blue + EmfRecord(43, Longs({0, 0, 2, 4}))), 4, 2)), "bbww/bbww/");
  const std::string path = EmfRecord(59, "") + EmfRecord(27, Longs({0, 0})) + EmfRecord(54, Longs({4, 0})) +
                           EmfRecord(54, Longs({4, 2})) + EmfRecord(54, Longs({0, 2})) + EmfRecord(61, "") +
                           EmfRecord(60, "");
  EXPECT_EQ(Seen(Emf(Emf(blue + path + EmfRecord(62, Longs({0, 0, 0, 0}))), 2, 2)), "bb/ww/");
  // Twice as large by the window, and moved by the world.
  const std::string scaled =
      EmfRecord(17, Longs({8})) + EmfRecord(9, Longs({2, 2})) + EmfRecord(11, Longs({4, 4}));
  EXPECT_EQ(Seen(Emf(Emf(scaled + blue + EmfRecord(43, Longs({0, 0, 1, 2}))), 4, 1)), "bbww/");
  const std::string moved = EmfRecord(35, Longs({0x3F800000, 0, 0, 0x3F800000, 0x40000000, 0}));
  EXPECT_EQ(Seen(Emf(Emf(EmfRecord(33, "") + moved + EmfRecord(34, Longs({-1})) + moved + blue +
                         EmfRecord(86, Longs({0, 0, 0, 0, 4}) + Words({0, 0, 2, 0, 2, 4, 0, 4}))),
                     4, 1)),
            "wwbb/");
  const std::string bits =
      EmfRecord(81, Longs({0, 0, 0, 0, 0, 0, 0, 0, 2, 1, 80, 40, 120, 8, 0, 0xCC0020, 4, 4}) + dib);
  EXPECT_EQ(Seen(Emf(Emf(bits), 4, 4)), "br/");
  EXPECT_EQ(Seen(Wmf("nothing", 4, 4)), "none");
  EXPECT_EQ(Seen(Emf("nothing", 4, 4)), "none");
}

class PictureFiles : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = testing::TempDir() + "pictures-XXXXXX";
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string Read(const std::string& name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void Put(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }
  Text Path(const std::string& name) const { return FromUtf8((folder_ / name).string()); }
  std::int32_t Extract(const std::string& rtf, bool png) const {
    return MakePictureExtractor()->Parse(FromWindows1252(rtf), Path("p"), 0, png ? 2 : 1, 90, 1, u"");
  }

  fs::path folder_;
};

std::string InHex(const std::string& bytes) {
  std::string digits;
  for (const char byte : bytes) {
    char two[3];
    std::snprintf(two, sizeof two, "%02x", static_cast<unsigned char>(byte));
    digits += two;
  }
  return digits;
}

Image Checked(std::uint32_t width, std::uint32_t height) {
  Image image = Image::Blank(width, height);
  for (std::size_t i = 0; i < image.pixels.size(); ++i)
    image.pixels[i] = i % 4 == 3 || i / 4 % 3 == i % 4 ? 255 : 0;
  return image;
}

TEST_F(PictureFiles, OneForEachPictureInOrder) {
  const std::string png = EncodePng(Checked(5, 3));
  const std::string jpeg = EncodeJpeg(Checked(6, 4), 90);
  const std::string raw = "{\\pict\\pngblip\\bin" + std::to_string(png.size()) + " " + png + "}";
  const std::string rtf =
      "{\\rtf1 {\\pict\\pngblip\\picw5 " + InHex(png) + "}{\\pict\\x{\\*\\y 41}\\jpegblip\r\n" + InHex(jpeg) +
      "}" + raw + "{\\pict\\macpict\\picwgoal300\\pichgoal150\\picscalex50 0102}{\\pict\\dibitmap0 " +
      InHex(DibHeader(2, 1, 32, 0, 0) + Longs({0xFF, 0xFF0000})) + "}{\\pict\\pngblip broken";
  EXPECT_EQ(Extract(rtf, true), 6);
  EXPECT_EQ(Read("p000.png"), png) << "is copied";
  EXPECT_EQ(DecodePng(Read("p001.png"))->width, 6U);
  EXPECT_EQ(Read("p002.png"), png) << "with its bytes as they are";
  const std::optional<Image> plain = DecodePng(Read("p003.png"));
  ASSERT_TRUE(plain);
  EXPECT_EQ(plain->width, 10U);
  EXPECT_EQ(plain->height, 10U);
  EXPECT_EQ(Seen(DecodePng(Read("p004.png"))), "br/");
  EXPECT_TRUE(DecodePng(Read("p005.png")));
  EXPECT_EQ(Extract(rtf, false), 6);
  EXPECT_EQ(DecodeJpeg(Read("p000.jpeg"))->width, 5U);
  EXPECT_EQ(Read("p001.jpeg"), jpeg);
}

TEST_F(PictureFiles, AreNotWrittenWhereThatCannotBe) {
  fs::create_symlink(folder_ / "target", folder_ / "p000.png");
  EXPECT_THROW(Extract("{\\pict\\x 0}", true), Failure);
  EXPECT_FALSE(fs::exists(folder_ / "target"));
  EXPECT_THROW(MakePictureExtractor()->Parse(u"{\\pict\\x 0}", Path("none/p"), 0, 2, 90, 1, u""), Failure);
  EXPECT_THROW(MakePictureExtractor()->Parse(u"{\\pict\\x 0}", u"d:\\p", 0, 2, 90, 1, u""), Failure);
}

// Every byte of every kind wrong in turn, and every length: nothing but an image comes of it.
TEST_F(PictureFiles, ComeOfBrokenPicturesToo) {
  const std::string dib = DibHeader(4, 2, 8, 1, 4) + Longs({0, 1, 2, 3}) +
                          Words({0x0102, 0x0302, 0x0000, 0x0300, 0x0201, 0x0003, 0x0100});
  const std::string wmf = Wmf(WmfRecord(0x020C, Words({40, 40})) +
                              WmfRecord(0x0538, Words({2, 3, 3, 0, 0, 4, 0, 0, 4, 1, 1, 2, 2, 3, 3})) +
                              WmfRecord(0x0A32, Words({1, 1, 2, 0, 0x4141, 3, 3})) +
                              WmfRecord(0x0817, Words({1, 2, 3, 4, 5, 6, 7, 8})) +
                              WmfRecord(0x0F43, Longs({0}) + Words({0, 1, 2, 0, 0, 4, 4, 0, 0}) + dib));
  const std::string emf =
      Emf(EmfRecord(17, Longs({8})) + EmfRecord(9, Longs({2, 2})) +
          EmfRecord(8, Longs({0, 0, 0, 0, 2, 6, 3, 3, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5})) +
          EmfRecord(84, Longs({0, 0, 0, 0, 1, 0, 0, 1, 1, 2, 76, 0, 0, 0, 0, 0, 80}) + Words({65, 66}) +
                            Longs({4, 4})) +
          EmfRecord(81, Longs({0, 0, 0, 0, 0, 0, 0, 0, 2, 1, 80, 56, 136, 14, 0, 0xCC0020, 4, 4}) + dib));
  std::mt19937 random(5);
  const auto decode = [](const std::string& bytes) {
    DecodePng(bytes);
    DecodeJpeg(bytes);
    DecodeDib(bytes);
    Wmf(bytes, 20, 20);
    Emf(bytes, 20, 20);
  };
  for (const std::string& whole : {dib, wmf, emf, EncodePng(Checked(3, 3)), EncodeJpeg(Checked(3, 3), 50)}) {
    for (std::size_t at = 0; at < whole.size(); ++at) {
      decode(whole.substr(0, at));
      for (const char byte : {'\0', '\x7F', '\xFF', static_cast<char>(random())}) {
        std::string broken = whole;
        broken[at] = byte;
        decode(broken);
      }
    }
  }
}

TEST(Metafiles, PaintNoMoreThanTheyMay) {
  std::string records = WmfRecord(0x020C, Words({1, 1}));
  const std::string ellipse = WmfRecord(0x0418, Words({1, 1, 0, 0}));
  for (int i = 0; i < 100000; ++i) records += ellipse;
  double pixels = 1e8;
  EXPECT_TRUE(DrawWmf(Wmf(records), 2000, 2000, pixels));
  EXPECT_LE(pixels, 0);
  EXPECT_THROW(Wmf(Wmf(records), 0xFFFFFFFF, 0xFFFFFFFF), LimitReached);
}

TEST(Addresses, OfThePublicNetworkOnly) {
  const auto is_public = [](const char* name) {
    sockaddr_in inet{};
    sockaddr_in6 inet6{};
    if (inet_pton(AF_INET, name, &inet.sin_addr) == 1) {
      inet.sin_family = AF_INET;
      return IsPublicAddress(reinterpret_cast<const sockaddr&>(inet));
    }
    inet6.sin6_family = AF_INET6;
    EXPECT_EQ(inet_pton(AF_INET6, name, &inet6.sin6_addr), 1) << name;
    return IsPublicAddress(reinterpret_cast<const sockaddr&>(inet6));
  };
  for (const char* name : {"127.0.0.1",
                           "10.1.2.3",
                           "172.16.0.1",
                           "172.31.255.255",
                           "192.168.1.1",
                           "169.254.169.254",
                           "0.0.0.0",
                           "100.64.0.1",
                           "224.0.0.1",
                           "255.255.255.255",
                           "198.18.0.1",
                           "::1",
                           "::",
                           "fe80::1",
                           "fc00::1",
                           "ff02::1",
                           "::ffff:127.0.0.1",
                           "64:ff9b::7f00:1",
                           "2002:7f00:1::",
                           "2001:db8::1",
                           "2001::1"}) {
    EXPECT_FALSE(is_public(name)) << name;
  }
  for (const char* name : {"8.8.8.8", "172.32.0.1", "192.169.0.1", "100.128.0.1", "223.255.255.255",
                           "2606:4700::1111", "64:ff9b::808:808", "2002:808:808::"}) {
    EXPECT_TRUE(is_public(name)) << name;
  }
}

/// A server that gives one answer to each path.
class Server {
 public:
  Server() : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    bind(socket_, reinterpret_cast<sockaddr*>(&address), size);
    getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    listen(socket_, 5);
    thread_ = std::thread([this] { Serve(); });
  }
  ~Server() {
    shutdown(socket_, SHUT_RDWR);
    thread_.join();
    close(socket_);
  }
  Text Address(const char* path) const {
    return FromUtf8("http://127.0.0.1:" + std::to_string(port_) + path);
  }

 private:
  void Serve() {
    for (int peer = accept(socket_, nullptr, nullptr); peer >= 0; peer = accept(socket_, nullptr, nullptr)) {
      char request[4096] = {};
      const bool asked = read(peer, request, sizeof request - 1) > 0;
      const std::string_view line(request);
      std::string answer = "HTTP/1.1 404 No\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
      const auto body = [&](const std::string& bytes) {
        answer = "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " + std::to_string(bytes.size()) +
                 "\r\n\r\n" + bytes;
      };
      if (line.starts_with("GET /a.png")) body(EncodePng(Checked(5, 3)));
      if (line.starts_with("GET /page.png")) body("<HTML>no picture");
      if (line.starts_with("GET /loop.png"))
        answer = "HTTP/1.1 302 Go\r\nLocation: /loop.png\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
      if (line.starts_with("GET /short.png"))
        answer = "HTTP/1.1 200 OK\r\nContent-Length: 5000\r\nConnection: close\r\n\r\nx";
      if (asked && write(peer, answer.data(), answer.size()) < 0) perror("server");
      close(peer);
    }
  }
  int socket_;
  int port_ = 0;
  std::thread thread_;
};

class PagePictures : public PictureFiles {
 protected:
  std::string Placed(const Text& tag, Fetching fetching = Fetching::Off) {
    Apartment apartment;
    apartment.services = Services::System(fetching);
    apartment.html_to_rtf.FetchCount = next_;
    HTMLRTFConverter::PlaceImage(apartment, ToUpper(tag), Path(""), tag);
    next_ = apartment.html_to_rtf.FetchCount;
    return ToUtf8(apartment.html_to_rtf.RtfOut);
  }
  Integer16 next_ = 1;
};

TEST_F(PagePictures, BecomePicturesOfRtf) {
  const std::string png = EncodePng(Checked(5, 3));
  const std::string jpeg = EncodeJpeg(Checked(6, 4), 90);
  const std::string dib = DibHeader(2, 1, 32, 0, 0) + Longs({0xFF, 0xFF0000});
  const std::string gif = std::string("GIF89a\2\0\1\0\x81\0\0", 13) +
                          std::string("\0\0\xFF\xFF\0\0\0\xFF\0\xFF\xFF\xFF", 12) +
                          std::string("\x2C\0\0\0\0\2\0\1\0\0\2\2\x44\x0A\0\x3B", 16);
  Put("a b.png", png);
  Put("a.jpg", jpeg);
  Put("a.bmp", "BM" + Longs({0, 0, 54}) + dib);
  Put("a.gif", gif);
  Put("text.png", "no picture");
  EXPECT_EQ(Placed(u"<IMG SRC=\"a%20b.png\">"),
            "{\\pict\\pngblip\\picw5\\pich3\\picwgoal75\\pichgoal45 " + InHex(png) + "}");
  EXPECT_TRUE(Placed(u"<img width=\"20\" src = a.jpg >")
                  .starts_with("{\\pict\\jpegblip\\picw6\\pich4\\picwgoal300\\pichgoal200 "));
  EXPECT_TRUE(Placed(u"<img height=10PX width=40 src=\"a.bmp\">")
                  .starts_with("{\\pict\\pngblip\\picw2\\pich1\\picwgoal600\\pichgoal150 "));
  EXPECT_TRUE(Placed(u"<img src=\"a.gif\">").starts_with("{\\pict\\pngblip\\picw2\\pich1\\"));
  const Text absolute = u"<img src=\"file:///" + Path("a.jpg") + u"\">";
  EXPECT_TRUE(Placed(absolute).starts_with("{\\pict\\jpegblip"));
  for (const TextView tag : {u"<IMG>", u"<IMG SRC=none.png>", u"<IMG SRC=text.png>", u"<IMG SRC=\"\">",
                             u"<IMG SRC=\"c:\\a.jpg\">", u"<img src=http://127.0.0.1/x>"}) {
    EXPECT_EQ(Placed(Text(tag)), ".") << ToUtf8(tag);
  }
}

TEST_F(PagePictures, AreFetchedWhereThatIsAllowed) {
  const Server server;
  const auto placed = [&](const char* path, Fetching fetching) {
    return Placed(u"<img src=\"" + server.Address(path) + u"\">", fetching);
  };
  EXPECT_TRUE(placed("/a.png", Fetching::AllHosts).starts_with("{\\pict\\pngblip\\picw5"));
  EXPECT_TRUE(fs::exists(folder_ / "file1.png"));
  EXPECT_EQ(placed("/page.png", Fetching::AllHosts), ".") << "a page in place of a picture";
  EXPECT_EQ(placed("/loop.png", Fetching::AllHosts), ".");
  EXPECT_EQ(placed("/short.png", Fetching::AllHosts), ".") << "never there in part";
  EXPECT_EQ(placed("/none.png", Fetching::AllHosts), ".");
  EXPECT_EQ(placed("/a.png", Fetching::PublicHosts), ".") << "this machine is private";
  EXPECT_EQ(placed("/a.png", Fetching::Off), ".");
  EXPECT_EQ(placed("/a.exe", Fetching::AllHosts), ".");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 2)
      << "file1 and the page";
}

TEST(ImageHeaders, TellTheResolution) {
  std::string png = EncodePng(Checked(5, 3));
  png.insert(33, std::string("\0\0\0\x09pHYs\0\0\x2E\x23\0\0\x2E\x23\1crc!", 21));
  EXPECT_NEAR(ReadImageHeader(png)->horizontal, 300, 0.1);
  std::string jpeg = EncodeJpeg(Checked(6, 4), 90);
  const std::size_t jfif = jpeg.find("JFIF");
  jpeg[jfif + 7] = 1;
  jpeg[jfif + 9] = 72;
  EXPECT_EQ(ReadImageHeader(jpeg)->horizontal, 72);
  EXPECT_FALSE(ReadImageHeader(png.substr(0, 20)));
  EXPECT_FALSE(ReadImageHeader(jpeg.substr(0, 30)));
}

}  // namespace
}  // namespace quillary::platform
