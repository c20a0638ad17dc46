#pragma once

#include <MLCore/platform/Export.h>
#include <MLCore/streams/CENCODER.h>

#include <string_view>

namespace MLCore {

/// Quotes the fields of a semicolon-separated file.
///
///     Encode("a;b");         // "a;b" in double quotes
///     Encode("say \"hi\"");  // in double quotes, with each inner one doubled
///
/// Decode(Encode(text)) returns the text, except that a run of double quotes becomes one. A field is quoted for a ";"
/// whatever the separator of the file is.
class MLCORE_API CCSVENCODER : public CENCODER {
public:
    ~CCSVENCODER() override;

    /// Puts a text that contains a ";" or a double quote in double quotes, and doubles the quotes inside. Returns any
    /// other text unchanged, also one with line breaks.
    std::string Encode(const std::string& text) override;
    /// If the text begins and ends with a double quote, removes both. Then makes one double quote of each run of them,
    /// however long. A text of fewer than two characters is returned unchanged.
    std::string Decode(const std::string& text) override;

private:
    friend class CISTREAMDECORATORFIELD;
    friend class COSTREAMDECORATORFIELD;
    /// Encode() of a text that needs quotes, to memory with room for it. Returns the end.
    static char* Quote(std::string_view text, char* encoded) noexcept;
    /// Decode() of any text.
    static void Unquote(std::string_view text, std::string& decoded);
};

}  // namespace MLCore
