// The component as an in-process server: objects with counted references, the interfaces that a
// host may ask for, and the four entry points of the shared library. In memory an interface is a
// pointer to a table of functions, in the order in which they stand here. A class factory and
// objects are counted by the server; one thread uses an object at a time.
#pragma once

#include <cstdint>

#include "quillary/Quillaryv8.h"
#include "quillary/export.h"
#include "quillary/property_bag.h"

namespace quillary::server {

/// 0 or a positive number for success, negative for a failure.
using HResult = std::int32_t;

inline constexpr HResult kOk = 0;
inline constexpr HResult kFalse = 1;
inline constexpr HResult kNoInterface = static_cast<HResult>(0x80004002);
inline constexpr HResult kPointer = static_cast<HResult>(0x80004003);
inline constexpr HResult kFail = static_cast<HResult>(0x80004005);
inline constexpr HResult kNoAggregation = static_cast<HResult>(0x80040110);
inline constexpr HResult kClassNotAvailable = static_cast<HResult>(0x80040111);
inline constexpr HResult kOutOfMemory = static_cast<HResult>(0x8007000E);

struct Guid {
  std::uint32_t first;
  std::uint16_t second;
  std::uint16_t third;
  std::uint8_t rest[8];

  friend bool operator==(const Guid& left, const Guid& right) = default;
};

inline constexpr Guid kIUnknown = {0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr Guid kIClassFactory = {0x00000001, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr Guid kIObjectSafety = {
    0xCB5BDC81, 0x93C1, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};
inline constexpr Guid kIPersistPropertyBag = {
    0x37D84F60, 0x42CB, 0x11CE, {0x81, 0x35, 0x00, 0xAA, 0x00, 0x4B, 0xB8, 0x51}};
/// The class Quillaryv8, and its default interface _Quillaryv8.
inline constexpr Guid kQuillaryv8Class = {
    0x6B1C2F0E, 0x5D43, 0x4A7B, {0x9E, 0x61, 0x3C, 0x58, 0xD2, 0x07, 0xB4, 0x19}};
inline constexpr Guid kQuillaryv8Interface = {
    0x6B1C2F0F, 0x5D43, 0x4A7B, {0x9E, 0x61, 0x3C, 0x58, 0xD2, 0x07, 0xB4, 0x19}};

/// An object is alive as long as its references: QueryInterface adds one, Release takes one back.
class IUnknown {
 public:
  /// Puts the interface `riid` of the object at `ppvObject`. kNoInterface, and null there, if it
  /// has none of that kind; kPointer if `ppvObject` is null.
  virtual HResult QueryInterface(const Guid& riid, void** ppvObject) noexcept = 0;
  virtual std::uint32_t AddRef() noexcept = 0;
  virtual std::uint32_t Release() noexcept = 0;

 protected:
  ~IUnknown() = default;
};

class IClassFactory : public IUnknown {
 public:
  /// A new object, as its interface `riid`. There is no aggregation: `pUnkOuter` must be null.
  virtual HResult CreateInstance(IUnknown* pUnkOuter, const Guid& riid, void** ppvObject) noexcept = 0;
  /// Keeps the server loaded while locked.
  virtual HResult LockServer(bool fLock) noexcept = 0;

 protected:
  ~IClassFactory() = default;
};

/// Whether an object is safe for scripts and for data that nobody trusts. This one says no.
class IObjectSafety : public IUnknown {
 public:
  virtual HResult GetInterfaceSafetyOptions(const Guid* riid, std::uint32_t* pdwSupportedOptions,
                                            std::uint32_t* pdwEnabledOptions) noexcept = 0;
  virtual HResult SetInterfaceSafetyOptions(const Guid* riid, std::uint32_t dwOptionsSetMask,
                                            std::uint32_t dwEnabledOptions) noexcept = 0;

 protected:
  ~IObjectSafety() = default;
};

class IPersistPropertyBag : public IUnknown {
 public:
  virtual HResult GetClassID(Guid* pClassID) noexcept = 0;
  virtual HResult InitNew() noexcept = 0;
  virtual HResult Load(PropertyBag* pPropBag) noexcept = 0;
  /// kFail if the bag throws.
  virtual HResult Save(PropertyBag* pPropBag) noexcept = 0;

 protected:
  ~IPersistPropertyBag() = default;
};

/// The default interface. The converter belongs to the object and is alive as long.
class _Quillaryv8 : public IUnknown {
 public:
  virtual Quillaryv8& Converter() noexcept = 0;

 protected:
  ~_Quillaryv8() = default;
};

}  // namespace quillary::server

extern "C" {

/// The class factory of a class, as its interface `riid`.
QUILLARY_API quillary::server::HResult DllGetClassObject(const quillary::server::Guid& rclsid,
                                                         const quillary::server::Guid& riid,
                                                         void** ppv) noexcept;
/// kOk if no object is alive and no lock held, else kFalse.
QUILLARY_API quillary::server::HResult DllCanUnloadNow() noexcept;
/// Writes the class and its type description to quillary/Quillaryv8.class in the user's data folder
/// ($XDG_DATA_HOME, or .local/share in the home folder); kFail if it cannot be written.
QUILLARY_API quillary::server::HResult DllRegisterServer() noexcept;
/// Removes that file; kOk if there is none.
QUILLARY_API quillary::server::HResult DllUnregisterServer() noexcept;
}
