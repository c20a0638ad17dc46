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
/// Every text comes back from Decode(Encode(text)), except that double quotes next to each other become one. Quoting looks
/// for ";" whatever the separator of the file is.
class MLCORE_API CCSVENCODER : public CENCODER {
public:
    ~CCSVENCODER() override;

    /// Puts a text that contains a ";" or a double quote in double quotes and doubles those inside.
    std::string Encode(const std::string& text) override;
    /// Drops a double quote at the front together with one at the end, then leaves one of every run of them, however
    /// long. A text of less than two characters stays as it is.
    std::string Decode(const std::string& text) override;

private:
    friend class CISTREAMDECORATORFIELD;
    friend class COSTREAMDECORATORFIELD;
    /// Encode() of a text that it changes, to where there is room; returns the end.
    static char* Quote(std::string_view text, char* encoded) noexcept;
    /// Decode() of any text.
    static void Unquote(std::string_view text, std::string& decoded);
};

}  // namespace MLCore
