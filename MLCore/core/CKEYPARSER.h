#pragma once

#include <MLCore/platform/Export.h>

#include <string>
#include <vector>

namespace MLCore {

/// Reads a key path into its steps.
///
///     path  = step *( "." step )
///     step  = name *( "[" index "]" )  /  1*( "[" index "]" )
///
/// A name is one or more characters other than ".", "[" and "]"; an index is decimal digits, at most 2147483647.
/// `orders[0].amount` has the steps name "orders", index 0, name "amount". A step that starts with an index is for
/// receivers that are arrays themselves.
class MLCORE_API CKEYPARSER {
public:
    struct STEP {
        bool isIndex;
        std::string name;  ///< empty for an index
        long index;        ///< 0 for a name
        bool operator==(const STEP&) const = default;
    };

    /// Fails with kErrUnknownKey (151) when `keyPath` is malformed; the empty path is malformed. Linear in its length.
    explicit CKEYPARSER(const std::string& keyPath);

    /// The steps, at least one; valid while the parser lives.
    [[nodiscard]] const std::vector<STEP>& GetAccessPath() const noexcept { return mAccessPath; }

private:
    std::vector<STEP> mAccessPath;
};

}  // namespace MLCore
