#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <thread>

#include "html_to_rtf/images/images.h"
#include "html_to_rtf/inline/rtf_words.h"
#include "html_to_rtf/inline/tag_values.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::HTMLRTFConverter {
namespace {

struct Source {
  Text upper;
  Text written;
};

// Position of the equals sign of an attribute. Throws Failure (argument) without one.
std::int32_t EqualsOf(TextView upper, TextView name) {
  std::int32_t found = FindText(1, upper, Joined({name, u"="}));
  if (found == 0) found = FindText(1, upper, Joined({name, u" ="}));
  return FindText(found, upper, u"=");
}

Text Value(TextView tag, std::int32_t start, std::int32_t end) {
  const TextView value = end == 0 ? MidView(tag, start) : MidView(tag, start, end - start);
  return Trim(Without(value, u">\""));
}

// The closing quote is looked for behind the first units, so that a very short value runs on
// to the quote of the next attribute.
Source ReadSource(TextView upper, TextView written) {
  const std::int32_t equals = EqualsOf(upper, u"SRC");
  TextView first = MidView(upper, equals + 1, 1);
  if (first == u" ") first = MidView(upper, equals + 2, 1);
  std::int32_t end = first == u"\"" ? FindText(equals + 4, upper, u"\"") : 0;
  if (end == 0) end = FindText(equals + 4, upper, u" ");
  return {Value(upper, equals + 1, end), Value(written, equals + 1, end)};
}

// A number that is missing or cannot be read is 0.
std::int16_t ReadPixels(TextView upper, TextView name) {
  std::int16_t pixels = 0;
  Attempt([&] {
    const std::int32_t equals = EqualsOf(upper, name);
    const bool spaced = MidView(upper, equals + 1, 1) == u" ";
    const Text value = Value(upper, equals + 1, FindText(equals + (spaced ? 3 : 2), upper, u" "));
    pixels = RoundNumberText(ReplaceAll(value, u"PX", u""));
  });
  return pixels;
}

bool IsOnWeb(TextView upper) {
  return upper.starts_with(u"HTTP://") || upper.starts_with(u"HTTPS://") || upper.starts_with(u"FTP://");
}

// The ending of the file, or nothing where the address has none of a picture.
Text EndingOf(TextView address) {
  Text ending = ToLower(Right(address, 4));
  if (ending == u"jpeg") return u".jpg";
  for (const TextView known : {u".jpg", u".bmp", u".png", u".gif"}) {
    if (ending == known) return ending;
  }
  return {};
}

// A server may answer with a page in place of a picture.
bool IsPage(platform::Files& files, TextView path) {
  const std::optional<std::string> bytes = files.Read(path, limits::kPictureFileBytes);
  if (!bytes) return false;
  const std::string_view line = std::string_view(*bytes).substr(0, bytes->find('\n'));
  return Holds(Text(line.begin(), line.end()), u"html", Compare::IgnoreCase);
}

// The file of a download, or nothing. A download that fails is over at once; one that a host's
// fetcher goes on with is waited for, but not for ever.
std::optional<Text> Fetch(Apartment& apartment, TextView image_folder, TextView address) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  const Text ending = EndingOf(address);
  if (ending.empty()) return std::nullopt;
  const Text path = Joined({image_folder, u"file", Decimal(state.FetchCount), ending});
  platform::Files& files = *apartment.services.files;
  Attempt([&] { files.Delete(path); });
  const bool started = Attempt([&] { apartment.services.fetcher()->DownloadFile(address, path); });
  Attempt([&] { ++state.FetchCount; });
  const auto patience = std::chrono::seconds(limits::kFetchSeconds);
  const auto start = std::chrono::steady_clock::now();
  while (!files.FileIsReadable(path)) {
    if (!started || std::chrono::steady_clock::now() - start > patience) return std::nullopt;
    YieldToHost();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  if (IsPage(files, path)) return std::nullopt;
  return path;
}

Text LocalPath(TextView image_folder, TextView source) {
  Text path = source.find(u':') == TextView::npos ? Joined({image_folder, u"\\", source}) : Text(source);
  if (source.find(u':') != TextView::npos) {
    for (const TextView scheme : {u"file:///", u"file://", u"file:/"}) {
      ReplaceIn(path, scheme, u"", Compare::IgnoreCase);
    }
  }
  ReplaceIn(path, u"%20", u" ");
  YieldToHost();
  return path;
}

// Pictures are no growth that rules could be blamed for, but all of them together have a limit.
void Place(Apartment& apartment, TextView picture) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  if (state.RtfOut.size() + picture.size() > limits::kPictureUnits) {
    apartment.stopped_short.pictures = true;
    throw Failure(Failure::Kind::Raised);
  }
  apartment.working_limit = std::min(apartment.working_limit + picture.size(), limits::kWorkingUnits);
  Append(state, picture);
}

void PlaceFile(Apartment& apartment, TextView upper, TextView image_folder, TextView written) {
  const Source source = ReadSource(upper, written);
  const std::int16_t width = ReadPixels(upper, u"WIDTH");
  const std::int16_t height = ReadPixels(upper, u"HEIGHT");
  std::optional<Text> path;
  if (IsOnWeb(source.upper)) {
    path = Fetch(apartment, image_folder, source.written);
  } else {
    path = LocalPath(image_folder, source.written);
  }
  if (!path) throw Failure(Failure::Kind::Raised);
  const Text picture =
      apartment.services.picture_creator()->CreateFromFile(*path, width, height, 0, 0, false, u"Quillary");
  Place(apartment, Left(picture, Length(picture) - 1));
}

}  // namespace

void PlaceImage(Apartment& apartment, TextView upper, TextView image_folder, TextView written) {
  if (!Attempt([&] { PlaceFile(apartment, upper, image_folder, written); })) {
    Append(apartment.html_to_rtf, u".");
  }
}

}  // namespace quillary::HTMLRTFConverter
