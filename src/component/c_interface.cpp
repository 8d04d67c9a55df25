// The C interface: converters by number, texts as bytes, statuses in place of exceptions.
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <stdexcept>
#include <unordered_map>

#include "component/conversions.h"
#include "component/file_to_string.h"
#include "component/public_errors.h"
#include "platform/files/files.h"
#include "quillary/quillary.h"
#include "text/encodings.h"

namespace quillary {
namespace {

struct Converter {
  std::mutex use;
  component::Properties properties;
  quillary_access access = 0;
};

// An error of the caller, with the status that tells it.
class WrongUse : public std::runtime_error {
 public:
  WrongUse(quillary_status status, const char* words) : std::runtime_error(words), status_(status) {}
  quillary_status status() const { return status_; }

 private:
  quillary_status status_;
};

// The converters that are alive. Numbers are never used again, so that a released one is known.
class Converters {
 public:
  quillary_converter Add() {
    auto converter = std::make_shared<Converter>();
    component::Class_InitProperties(converter->properties);
    const std::lock_guard lock(mutex_);
    converters_.emplace(next_, std::move(converter));
    return next_++;
  }

  void Remove(quillary_converter number) {
    std::shared_ptr<Converter> last;  // ends, perhaps, when nobody waits any more
    const std::lock_guard lock(mutex_);
    const auto found = Find(number);
    last = std::move(found->second);
    converters_.erase(found);
  }

  std::shared_ptr<Converter> Get(quillary_converter number) {
    const std::lock_guard lock(mutex_);
    return Find(number)->second;
  }

 private:
  using Map = std::unordered_map<quillary_converter, std::shared_ptr<Converter>>;

  Map::iterator Find(quillary_converter number) {
    const auto found = converters_.find(number);
    if (found == converters_.end()) throw WrongUse(QUILLARY_NO_CONVERTER, "there is no such converter");
    return found;
  }

  std::mutex mutex_;
  Map converters_;
  quillary_converter next_ = 1;
};

Converters& AllConverters() {
  static Converters converters;
  return converters;
}

// In a plain array, so that telling of a failure needs no memory.
thread_local char last_error[256] = "";

quillary_status Failed(quillary_status status, const char* words) {
  std::strncpy(last_error, words, sizeof last_error - 1);
  return status;
}

// Runs a function of the interface: what it throws becomes a status.
template <class Action>
quillary_status AsStatus(Action&& action) noexcept {
  try {
    action();
    return QUILLARY_OK;
  } catch (const WrongUse& wrong) {
    return Failed(wrong.status(), wrong.what());
  } catch (const LimitReached& reached) {
    return Failed(QUILLARY_LIMIT_REACHED, reached.what());
  } catch (const ConversionLimit& reached) {
    return Failed(QUILLARY_LIMIT_REACHED, reached.what());
  } catch (const std::bad_alloc&) {
    return Failed(QUILLARY_NO_MEMORY, "there is not enough memory");
  } catch (const std::exception& failure) {
    return Failed(QUILLARY_CONVERSION_FAILED, failure.what());
  }
}

void Require(bool right, const char* words) {
  if (!right) throw WrongUse(QUILLARY_BAD_ARGUMENT, words);
}

// The bytes that a caller gave. A length that is beyond the limit is refused before anything is read.
std::string_view BytesOf(const void* bytes, size_t length) {
  if (length == 0) return {};
  Require(bytes != nullptr, "the text is a null pointer");
  if (length > limits::kInputUnits) throw LimitReached(LimitReached::Limit::Input);
  return {static_cast<const char*>(bytes), length};
}

Text component::Properties::*PropertyOf(quillary_property property) {
  Require(property >= 0 && property < QUILLARY_PROPERTIES, "there is no such property");
  return component::AllProperties()[static_cast<std::size_t>(property)].text;
}

// Where a text goes that the caller will own: nothing at first.
class Result {
 public:
  Result(char** text, size_t* length) : text_(text), length_(length) {
    if (text != nullptr) *text = nullptr;
    if (length != nullptr) *length = 0;
    Require(text != nullptr && length != nullptr, "the place for the result is a null pointer");
  }

  void Give(const std::string& bytes) const {
    auto* copy = static_cast<char*>(std::malloc(bytes.size() + 1));
    if (copy == nullptr) throw std::bad_alloc();
    std::memcpy(copy, bytes.data(), bytes.size());
    copy[bytes.size()] = '\0';
    *text_ = copy;
    *length_ = bytes.size();
  }

 private:
  char** text_;
  size_t* length_;
};

Text TextFromUtf8(quillary_property property, std::string_view bytes) {
  Require(IsUtf8(bytes), "the text is no UTF-8");
  const std::u8string_view text(reinterpret_cast<const char8_t*>(bytes.data()), bytes.size());
  if (property == QUILLARY_RTF_TEXT) return RtfOf(text);
  return property == QUILLARY_HTML_TEXT ? HtmlOf(text) : TextOf(text);
}

platform::Services ServicesFor(const Converter& converter) {
  const bool web = (converter.access & QUILLARY_ACCESS_WEB) != 0;
  const auto fetching = web ? platform::Fetching::PublicHosts : platform::Fetching::Off;
  if ((converter.access & QUILLARY_ACCESS_FILES) != 0) return platform::Services::System(fetching);
  return platform::Services::System(fetching, {platform::HostPath(converter.properties.ImageFolder)});
}

using ConvertFunction = Text (*)(Apartment&, component::Properties&);

constexpr ConvertFunction kConversions[] = {
    component::ConvertRTF,       component::ConvertNoBody,   component::ConvertRawHtml,
    component::ConvertRTFHeader, component::ConvertRTFPlain, component::ConvertPlainHTML,
    component::ConvertHTML2RTF,
};

std::string Encode(quillary_conversion conversion, const Text& text, Encoding encoding) {
  if (conversion == QUILLARY_CONVERT_HTML2RTF) return EncodeRtf(text);
  return conversion == QUILLARY_CONVERT_RTF_PLAIN ? EncodePlainText(text, encoding)
                                                  : EncodePage(text, encoding);
}

Encoding EncodingOf(quillary_encoding encoding) {
  switch (encoding) {
    case QUILLARY_UTF_8:
      return Encoding::Utf8;
    case QUILLARY_ASCII:
      return Encoding::Ascii;
    case QUILLARY_WINDOWS_1252:
      return Encoding::Windows1252;
    default:
      throw WrongUse(QUILLARY_BAD_ARGUMENT, "there is no such encoding");
  }
}

}  // namespace
}  // namespace quillary

using namespace quillary;

const char* quillary_version(void) { return Version(); }
int quillary_version_number(void) { return VersionNumber(); }
const char* quillary_last_error(void) { return last_error; }

quillary_status quillary_create(quillary_converter* converter) {
  return AsStatus([&] {
    Require(converter != nullptr, "the place for the converter is a null pointer");
    *converter = 0;
    *converter = AllConverters().Add();
  });
}

quillary_status quillary_release(quillary_converter converter) {
  return AsStatus([&] { AllConverters().Remove(converter); });
}

void quillary_free(char* text) { std::free(text); }

const char* quillary_property_name(quillary_property property) {
  if (property < 0 || property >= QUILLARY_PROPERTIES) return nullptr;
  return component::AllProperties()[static_cast<std::size_t>(property)].name;
}

quillary_status quillary_set_text(quillary_converter converter, quillary_property property, const char* text,
                                  size_t length) {
  return AsStatus([&] {
    const auto found = AllConverters().Get(converter);
    const auto place = PropertyOf(property);
    Text value = TextFromUtf8(property, BytesOf(text, length));
    const std::lock_guard lock(found->use);
    found->properties.*place = std::move(value);
  });
}

quillary_status quillary_set_bytes(quillary_converter converter, quillary_property property,
                                   const void* bytes, size_t length) {
  return AsStatus([&] {
    const auto found = AllConverters().Get(converter);
    const auto place = PropertyOf(property);
    Text value = FromWindows1252(BytesOf(bytes, length));
    const std::lock_guard lock(found->use);
    found->properties.*place = std::move(value);
  });
}

quillary_status quillary_set_page(quillary_converter converter, const void* bytes, size_t length) {
  return AsStatus([&] {
    const auto found = AllConverters().Get(converter);
    Text page = PageOf(Bytes{BytesOf(bytes, length)});
    const std::lock_guard lock(found->use);
    found->properties.HTML_Text = std::move(page);
  });
}

quillary_status quillary_get_text(quillary_converter converter, quillary_property property, char** text,
                                  size_t* length) {
  return AsStatus([&] {
    const Result result(text, length);
    const auto found = AllConverters().Get(converter);
    const auto place = PropertyOf(property);
    const std::lock_guard lock(found->use);
    result.Give(ToUtf8(found->properties.*place));
  });
}

quillary_status quillary_allow(quillary_converter converter, quillary_access access) {
  return AsStatus([&] {
    const auto found = AllConverters().Get(converter);
    Require(access <= (QUILLARY_ACCESS_FILES | QUILLARY_ACCESS_WEB), "there is no such access");
    const std::lock_guard lock(found->use);
    found->access = access;
  });
}

quillary_status quillary_convert(quillary_converter converter, quillary_conversion conversion,
                                 quillary_encoding encoding, char** result, size_t* length) {
  return AsStatus([&] {
    const Result place(result, length);
    const auto found = AllConverters().Get(converter);
    Require(conversion >= 0 && conversion < static_cast<int>(std::size(kConversions)),
            "there is no such conversion");
    const Encoding written = EncodingOf(encoding);
    const std::lock_guard lock(found->use);
    Apartment apartment;  // so that a document never depends on the one before
    apartment.services = ServicesFor(*found);
    place.Give(Encode(conversion, kConversions[conversion](apartment, found->properties), written));
  });
}

quillary_status quillary_file_to_string(const char* path, char** text, size_t* length) {
  return AsStatus([&] {
    const Result result(text, length);
    Require(path != nullptr, "the path is a null pointer");
    Require(IsUtf8(path), "the path is no UTF-8");
    Apartment apartment;
    result.Give(ToUtf8(component::FileToString(apartment, FromUtf8(path))));
  });
}
