#pragma once

#include <MLCore/core/COBJECT.h>
#include <MLCore/core/CSHAREOBJECTPTR.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace MLCore {

/// Objects under keys, in the order of the keys' bytes: what CMEMDICTIONARY holds. Most dictionaries are records of a
/// few fields; one table of them takes less memory than a tree, and comes into the cache as a whole.
class KEYEDOBJECTS {
public:
    struct ENTRY {
        std::string key;
        mutable CSHAREOBJECTPTR<COBJECT> object;  // which the order does not depend on
    };
    struct BYKEY {
        using is_transparent = void;
        template <class Left, class Right>
        bool operator()(const Left& left, const Right& right) const noexcept {
            return KeyOf(left) < KeyOf(right);
        }
        static const std::string& KeyOf(const ENTRY& entry) noexcept { return entry.key; }
        static const std::string& KeyOf(const std::string& key) noexcept { return key; }
    };
    using TREE = std::set<ENTRY, BYKEY>;

    /// An entry, until GetMoves() changes.
    struct PLACE {
        const ENTRY* entry = nullptr;  ///< null at the end
        TREE::const_iterator node;     ///< of the tree, where there is one
    };

    [[nodiscard]] std::size_t GetCount() const noexcept { return mTree ? mTree->size() : mTable.size(); }
    /// Grows whenever entries move or go.
    [[nodiscard]] std::uint64_t GetMoves() const noexcept { return mMoves; }

    /// The first entry that does not come before `key`.
    [[nodiscard]] PLACE From(const std::string& key) const noexcept;
    [[nodiscard]] PLACE First() const noexcept { return From({}); }
    /// `place` is not the end.
    [[nodiscard]] PLACE Next(PLACE place) const noexcept;
    [[nodiscard]] const ENTRY* Find(const std::string& key) const noexcept;
    /// The object under `key`; a new null when there was none.
    [[nodiscard]] CSHAREOBJECTPTR<COBJECT>& At(const std::string& key);
    /// Takes an object out; false when there was no entry.
    [[nodiscard]] bool Remove(const std::string& key, CSHAREOBJECTPTR<COBJECT>& removed);
    /// Releases the objects when it is empty already.
    void RemoveAll() noexcept;

private:
    static constexpr std::size_t kMostInTable = 16;

    std::vector<ENTRY> mTable;    // in order
    std::unique_ptr<TREE> mTree;  // instead of the table, once that was full
    std::uint64_t mMoves = 0;
};

}  // namespace MLCore
