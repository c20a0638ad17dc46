#include <MLCore/values/detail/KEYEDOBJECTS.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace MLCore {

KEYEDOBJECTS::PLACE KEYEDOBJECTS::From(const std::string& key) const noexcept {
    if (mTree) {
        const auto node = mTree->lower_bound(key);
        return {node != mTree->end() ? &*node : nullptr, node};
    }
    const auto entry = std::lower_bound(mTable.begin(), mTable.end(), key, BYKEY());
    return {entry != mTable.end() ? &*entry : nullptr, {}};
}

KEYEDOBJECTS::PLACE KEYEDOBJECTS::Next(PLACE place) const noexcept {
    if (mTree) {
        const auto node = std::next(place.node);
        return {node != mTree->end() ? &*node : nullptr, node};
    }
    return {place.entry != &mTable.back() ? place.entry + 1 : nullptr, {}};
}

const KEYEDOBJECTS::ENTRY* KEYEDOBJECTS::Find(const std::string& key) const noexcept {
    if (mTree) {
        const auto node = mTree->find(key);
        return node != mTree->end() ? &*node : nullptr;
    }
    // One by one: few keys are as long as another, and the processor fetches ahead.
    const auto entry =
        std::find_if(mTable.begin(), mTable.end(), [&key](const ENTRY& each) { return each.key == key; });
    return entry != mTable.end() ? &*entry : nullptr;
}

CSHAREOBJECTPTR<COBJECT>& KEYEDOBJECTS::At(const std::string& key) {
    PLACE place = From(key);
    if (place.entry != nullptr && place.entry->key == key) {
        return place.entry->object;
    }
    ENTRY added{key, nullptr};
    if (!mTree && mTable.size() == kMostInTable) {
        mTree = std::make_unique<TREE>(mTable.begin(), mTable.end());
        ++mMoves;
        std::exchange(mTable, {});
        place = From(key);
    }
    if (mTree) {
        return mTree->insert(place.node, std::move(added))->object;
    }
    const auto next = mTable.begin() + (place.entry != nullptr ? place.entry - mTable.data() : std::ssize(mTable));
    const auto inserted = mTable.insert(next, std::move(added));
    ++mMoves;
    return inserted->object;
}

bool KEYEDOBJECTS::Remove(const std::string& key, CSHAREOBJECTPTR<COBJECT>& removed) {
    const PLACE place = From(key);
    if (place.entry == nullptr || place.entry->key != key) {
        return false;
    }
    std::swap(removed, place.entry->object);
    if (mTree) {
        mTree->erase(place.node);
    } else {
        mTable.erase(mTable.begin() + (place.entry - mTable.data()));
    }
    ++mMoves;
    return true;
}

void KEYEDOBJECTS::RemoveAll() noexcept {
    ++mMoves;
    const std::vector<ENTRY> table = std::exchange(mTable, {});
    const std::unique_ptr<TREE> tree = std::move(mTree);
}

}  // namespace MLCore
