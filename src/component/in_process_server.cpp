// The objects that hosts get from the server: the class factory, and a converter with its
// interfaces. Nothing thrown leaves these functions.
#include <atomic>
#include <memory>
#include <new>

#include "component/bas_safe_ctl.h"
#include "quillary/server.h"

namespace quillary::server {
namespace {

// Objects alive and locks held: the server may not be unloaded before there are none.
std::atomic<std::uint32_t> uses{0};

class References {
 public:
  References() { ++uses; }
  References(const References&) = delete;
  References& operator=(const References&) = delete;
  ~References() { --uses; }

  std::uint32_t Add() { return ++count_; }
  std::uint32_t Drop() { return --count_; }

 private:
  std::atomic<std::uint32_t> count_{1};
};

// Runs an operation and tells its failure as a number.
template <class Action>
HResult AsResult(Action&& action) noexcept {
  try {
    action();
    return kOk;
  } catch (const Failure& failure) {
    return failure.code() != 0 ? static_cast<HResult>(failure.code()) : kFail;
  } catch (const std::bad_alloc&) {
    return kOutOfMemory;
  } catch (...) {
    return kFail;
  }
}

class ConverterObject final : public _Quillaryv8, public IObjectSafety, public IPersistPropertyBag {
 public:
  HResult QueryInterface(const Guid& riid, void** ppvObject) noexcept override {
    if (ppvObject == nullptr) return kPointer;
    *ppvObject = nullptr;
    if (riid == kIUnknown || riid == kQuillaryv8Interface) {
      *ppvObject = static_cast<_Quillaryv8*>(this);
    } else if (riid == kIObjectSafety) {
      *ppvObject = static_cast<IObjectSafety*>(this);
    } else if (riid == kIPersistPropertyBag) {
      *ppvObject = static_cast<IPersistPropertyBag*>(this);
    } else {
      return kNoInterface;
    }
    AddRef();
    return kOk;
  }
  std::uint32_t AddRef() noexcept override { return references_.Add(); }
  std::uint32_t Release() noexcept override {
    const std::uint32_t left = references_.Drop();
    if (left == 0) delete this;
    return left;
  }

  Quillaryv8& Converter() noexcept override { return converter_; }

  HResult GetInterfaceSafetyOptions(const Guid* riid, std::uint32_t* pdwSupportedOptions,
                                    std::uint32_t* pdwEnabledOptions) noexcept override {
    if (pdwSupportedOptions == nullptr || pdwEnabledOptions == nullptr) return kPointer;
    return AsResult([&] {
      basSafeCtl::IObjectSafety_GetInterfaceSafetyOptions(riid, *pdwSupportedOptions, *pdwEnabledOptions);
    });
  }
  HResult SetInterfaceSafetyOptions(const Guid* riid, std::uint32_t dwOptionsSetMask,
                                    std::uint32_t dwEnabledOptions) noexcept override {
    return AsResult([&] {
      basSafeCtl::IObjectSafety_SetInterfaceSafetyOptions(riid, dwOptionsSetMask, dwEnabledOptions);
    });
  }

  HResult GetClassID(Guid* pClassID) noexcept override {
    if (pClassID == nullptr) return kPointer;
    *pClassID = kQuillaryv8Class;
    return kOk;
  }
  HResult InitNew() noexcept override {
    return AsResult([&] { converter_ = Quillaryv8(); });
  }
  HResult Load(PropertyBag* pPropBag) noexcept override {
    if (pPropBag == nullptr) return kPointer;
    return AsResult([&] { converter_.ReadProperties(*pPropBag); });
  }
  HResult Save(PropertyBag* pPropBag) noexcept override {
    if (pPropBag == nullptr) return kPointer;
    return AsResult([&] { converter_.WriteProperties(*pPropBag); });
  }

 private:
  References references_;
  Quillaryv8 converter_;
};

class Factory final : public IClassFactory {
 public:
  HResult QueryInterface(const Guid& riid, void** ppvObject) noexcept override {
    if (ppvObject == nullptr) return kPointer;
    *ppvObject = nullptr;
    if (riid != kIUnknown && riid != kIClassFactory) return kNoInterface;
    *ppvObject = static_cast<IClassFactory*>(this);
    AddRef();
    return kOk;
  }
  std::uint32_t AddRef() noexcept override { return references_.Add(); }
  std::uint32_t Release() noexcept override {
    const std::uint32_t left = references_.Drop();
    if (left == 0) delete this;
    return left;
  }

  HResult CreateInstance(IUnknown* pUnkOuter, const Guid& riid, void** ppvObject) noexcept override {
    if (ppvObject == nullptr) return kPointer;
    *ppvObject = nullptr;
    if (pUnkOuter != nullptr) return kNoAggregation;
    HResult result = kOk;
    const HResult made = AsResult([&] {
      auto* converter = std::make_unique<ConverterObject>().release();
      result = converter->QueryInterface(riid, ppvObject);
      converter->Release();
    });
    return made == kOk ? result : made;
  }
  HResult LockServer(bool fLock) noexcept override {
    fLock ? ++uses : --uses;
    return kOk;
  }

 private:
  References references_;
};

}  // namespace
}  // namespace quillary::server

using quillary::server::HResult;

HResult DllGetClassObject(const quillary::server::Guid& rclsid, const quillary::server::Guid& riid,
                          void** ppv) noexcept {
  using namespace quillary::server;
  if (ppv == nullptr) return kPointer;
  *ppv = nullptr;
  if (rclsid != kQuillaryv8Class) return kClassNotAvailable;
  auto* factory = new (std::nothrow) Factory();
  if (factory == nullptr) return kOutOfMemory;
  const HResult result = factory->QueryInterface(riid, ppv);
  factory->Release();
  return result;
}

HResult DllCanUnloadNow() noexcept {
  using namespace quillary::server;
  return uses == 0 ? kOk : kFalse;
}
