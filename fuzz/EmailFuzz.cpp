// E-mail addresses, against an automaton.
#include <MLCore/net/CEMAIL.h>

#include "Input.h"

namespace {

using namespace MLCore;
using namespace fuzz;

/// The words of a part, by an automaton.
bool IsWords(const std::string& text, char open, char close, std::string_view refused) {
    enum { Start, Atom, Inside, Escaped, Behind, Wrong } state = Start;
    for (const char c : text) {
        const bool isAtom =
            c >= 33 && c <= 126 && std::string_view("()<>@,;:\\\"[].").find(c) == std::string_view::npos;
        switch (state) {
            case Start:
                state = c == open ? Inside : isAtom ? Atom : Wrong;
                break;
            case Atom:
                state = c == '.' ? Start : isAtom ? Atom : Wrong;
                break;
            case Inside:
                state = c == '\\' ? Escaped : c == close ? Behind : refused.find(c) != refused.npos ? Wrong : Inside;
                break;
            case Escaped:
                state = Inside;
                break;
            case Behind:
                state = c == '.' ? Start : Wrong;
                break;
            case Wrong:
                return false;
        }
    }
    return !text.empty() && (state == Start || state == Atom || state == Behind);
}

/// Addresses are split as told, and valid exactly when both parts are words.
void Property(INPUT input) {
    const std::string bytes = input.Rest(), text = bytes.c_str();
    const CEMAIL email(text.c_str());
    const std::string& local = email.GetLocalPart();
    const std::string& domain = email.GetDomain();
    const bool isSplit = local.size() != text.size();
    FUZZ_REQUIRE(local + (isSplit ? "@" : "") + domain == text);
    std::size_t quotes = 0, at = 0;
    for (; at < text.size() && (text[at] != '@' || quotes % 2 != 0); ++at) quotes += text[at] == '"' ? 1 : 0;
    FUZZ_REQUIRE(local.size() == at);
    // Any two parts: here also those that no address is split into.
    const std::size_t middle = text.rfind('@');
    const std::string first = text.substr(0, middle), second = middle < text.size() ? text.substr(middle + 1) : "";
    for (const CEMAIL& each : {email, CEMAIL(first.c_str(), second.c_str())}) {
        const bool isValid =
            IsWords(each.GetLocalPart(), '"', '"', "\n\r") && IsWords(each.GetDomain(), '[', ']', "\n\r[");
        FUZZ_REQUIRE(each.IsValid() == (isValid ? 1 : 0));
    }
    if (!local.empty() && !domain.empty()) {
        FUZZ_REQUIRE(email.ToString() == text && CEMAIL(email.ToString().c_str()) == email);
    } else {
        FUZZ_REQUIRE(email.ToString().empty() && email.IsValid() == 0);
    }
}

const TARGET kTarget("Email", Property);

}  // namespace
