/// What a client does that includes <windows.h>, which makes macros of some of the library's names, before or after the
/// library's headers.
#pragma once

#include <MLCore/MLCore.h>
#include <gtest/gtest.h>

namespace {

class CSIGN : public MLCore::COBJECT {
    MLCORE_CLASS(CSIGN, MLCore::COBJECT)
public:
    static MLCore::CSHAREOBJECTPTR<MLCore::COBJECT> Create() { return MLCore::AdoptObject(new CSIGN); }
};

MLCORE_REGISTER_CLASS(CSIGN)

void UseLibraryAndSystem() {
    const MLCore::CSHAREOBJECTPTR<MLCore::COBJECT> sign = CSIGN::Create();
    EXPECT_STREQ(sign->GetClassName(), "CSIGN");
    const char* (MLCore::COBJECT::*const name)() const = &MLCore::COBJECT::GetClassName;
    EXPECT_STREQ((sign->*name)(), "CSIGN");

    MLCore::COBJECTFACTORY* const factory = MLCore::COBJECTFACTORY::GetInstance();
    factory->RegisterClass("sign", "identifier", CSIGN::Create);
    EXPECT_STREQ(factory->CreateObjectFromIdentifier("identifier")->GetClassName(), "CSIGN");
    factory->RegisterClass("sign", nullptr, &CSIGN::Create);
    EXPECT_EQ(factory->IsRegisteredIdentifier("identifier"), 0);
    factory->RegisterClass("sign", [] { return CSIGN::Create(); });
    EXPECT_EQ(factory->IsRegistered("sign"), 1);
    factory->UnregisterClass("sign");
    EXPECT_EQ(factory->IsRegistered("sign"), 0);

    // The system's functions of those names are still there.
    char text[8] = "";
    EXPECT_EQ(GetClassName(nullptr, text, sizeof(text)), 0);
    WNDCLASS window = {};
    window.lpszClassName = "MLCore";
    window.lpfnWndProc = DefWindowProc;
    window.hInstance = GetModuleHandle(nullptr);
    EXPECT_NE(RegisterClass(&window), 0);
    EXPECT_NE(UnregisterClass(window.lpszClassName, window.hInstance), FALSE);

    EXPECT_THROW(MLCore::FailOLEErr(static_cast<unsigned int>(E_FAIL)), MLCore::FrameworkException);
    SYSTEMTIME time = MLCore::CDATE(5, 3, 2024).ToSystemTime();
    EXPECT_EQ(time.wYear, 2024);
}

}  // namespace
