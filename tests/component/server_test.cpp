// Objects as a host gets them from the in-process server, and their persistence.
#include "quillary/server.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace quillary::server {
namespace {

namespace fs = std::filesystem;

class MapBag final : public PropertyBag {
 public:
  std::u16string ReadProperty(std::string_view key, std::u16string_view fallback) override {
    const auto found = texts.find(std::string(key));
    return found == texts.end() ? std::u16string(fallback) : found->second;
  }
  void WriteProperty(std::string_view key, std::u16string_view value, std::u16string_view fallback) override {
    if (full) throw 7;  // a host's bag may throw anything
    if (value != fallback) texts[std::string(key)] = value;
  }

  std::map<std::string, std::u16string> texts;
  bool full = false;
};

template <class Interface>
Interface* As(IUnknown& object, const Guid& riid) {
  void* found = nullptr;
  EXPECT_EQ(object.QueryInterface(riid, &found), kOk);
  return static_cast<Interface*>(found);
}

TEST(Server, HandsOutConvertersAndCountsThem) {
  EXPECT_EQ(DllCanUnloadNow(), kOk);
  void* found = nullptr;
  EXPECT_EQ(DllGetClassObject(kIUnknown, kIClassFactory, &found), kClassNotAvailable);
  EXPECT_EQ(DllGetClassObject(kQuillaryv8Class, kIObjectSafety, &found), kNoInterface);
  EXPECT_EQ(found, nullptr);
  EXPECT_EQ(DllGetClassObject(kQuillaryv8Class, kIClassFactory, nullptr), kPointer);
  ASSERT_EQ(DllGetClassObject(kQuillaryv8Class, kIClassFactory, &found), kOk);
  auto* factory = static_cast<IClassFactory*>(found);
  EXPECT_EQ(factory->CreateInstance(factory, kIUnknown, &found), kNoAggregation);
  EXPECT_EQ(factory->CreateInstance(nullptr, kIClassFactory, &found), kNoInterface);
  ASSERT_EQ(factory->CreateInstance(nullptr, kQuillaryv8Interface, &found), kOk);
  auto* object = static_cast<_Quillaryv8*>(found);
  factory->LockServer(true);
  EXPECT_EQ(factory->Release(), 0U);
  EXPECT_EQ(DllCanUnloadNow(), kFalse);

  object->Converter().RTF_Text(Bytes{"{\\rtf1 Hello}"});
  EXPECT_EQ(object->Converter().ConvertRTFPlain(), u"Hello");
  EXPECT_EQ(object->AddRef(), 2U);
  EXPECT_EQ(object->Release(), 1U);
  EXPECT_EQ(object->Release(), 0U);
  EXPECT_EQ(DllCanUnloadNow(), kFalse);  // the lock
  ASSERT_EQ(DllGetClassObject(kQuillaryv8Class, kIUnknown, &found), kOk);
  factory = As<IClassFactory>(*static_cast<IUnknown*>(found), kIClassFactory);
  factory->LockServer(false);
  factory->Release();
  factory->Release();
  EXPECT_EQ(DllCanUnloadNow(), kOk);
}

class Object : public testing::Test {
 protected:
  void SetUp() override {
    void* found = nullptr;
    ASSERT_EQ(DllGetClassObject(kQuillaryv8Class, kIClassFactory, &found), kOk);
    auto* factory = static_cast<IClassFactory*>(found);
    ASSERT_EQ(factory->CreateInstance(nullptr, kQuillaryv8Interface, &found), kOk);
    object_ = static_cast<_Quillaryv8*>(found);
    factory->Release();
  }
  void TearDown() override { EXPECT_EQ(object_->Release(), 0U); }

  _Quillaryv8* object_ = nullptr;
};

TEST_F(Object, IsSafeForNobody) {
  auto* safety = As<IObjectSafety>(*object_, kIObjectSafety);
  std::uint32_t supported = 9;
  std::uint32_t enabled = 9;
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(&kIPersistPropertyBag, &supported, &enabled), kOk);
  EXPECT_EQ(supported, 3U);
  EXPECT_EQ(enabled, 0U);
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(&kIUnknown, &supported, &enabled), kNoInterface);
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(nullptr, nullptr, &enabled), kPointer);
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(&kIPersistPropertyBag, 2, 2), kFail);
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(&kIPersistPropertyBag, 3, 3), kOk);
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(nullptr, 2, 2), kOk);
  safety->Release();
}

TEST_F(Object, IsSavedAndRestored) {
  auto* bags = As<IPersistPropertyBag>(*object_, kIPersistPropertyBag);
  Guid id = {};
  EXPECT_EQ(bags->GetClassID(&id), kOk);
  EXPECT_EQ(id, kQuillaryv8Class);
  MapBag bag;
  object_->Converter().CleanHTML(Switch::Yes);
  object_->Converter().HTML_Title(u8"T\u00E4");
  EXPECT_EQ(bags->Save(&bag), kOk);
  EXPECT_EQ(bag.texts,
            (std::map<std::string, std::u16string>{{"CleanHTML", u"yes"}, {"HTML_Title", u"T\u00E4"}}));
  EXPECT_EQ(bags->InitNew(), kOk);
  EXPECT_EQ(object_->Converter().CleanHTML(), u"no");
  EXPECT_EQ(bags->Load(&bag), kOk);
  EXPECT_EQ(object_->Converter().CleanHTML(), u"yes");
  EXPECT_EQ(object_->Converter().HTML_Title(), u"T\u00E4");
  bag.full = true;
  EXPECT_EQ(bags->Save(&bag), kFail);
  EXPECT_EQ(bags->Load(nullptr), kPointer);
  bags->Release();
}

TEST(Server, RegistersItsClass) {
  const fs::path folder = fs::temp_directory_path() / ("quillary_server_" + std::to_string(getpid()));
  ASSERT_EQ(setenv("XDG_DATA_HOME", folder.c_str(), 1), 0);
  const fs::path file = folder / "quillary" / "Quillaryv8.class";
  EXPECT_EQ(DllUnregisterServer(), kOk);
  ASSERT_EQ(DllRegisterServer(), kOk);
  EXPECT_EQ(DllRegisterServer(), kOk);
  std::ifstream in(file);
  const std::string words((std::istreambuf_iterator<char>(in)), {});
  for (const char* line : {"id = {6B1C2F0E-5D43-4A7B-9E61-3C58D207B419}\n", "property = text TableBorders\n",
                           "operation = text FileToString(text SourceFile)\n", "server = /"}) {
    EXPECT_NE(words.find(line), std::string::npos) << words;
  }
  EXPECT_EQ(DllUnregisterServer(), kOk);
  EXPECT_FALSE(fs::exists(file));
  fs::remove_all(folder);
  std::ofstream(folder) << "no folder";
  EXPECT_EQ(DllRegisterServer(), kFail);
  fs::remove(folder);
}

}  // namespace
}  // namespace quillary::server
