#include "controls/row_list.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

#include <algorithm>
#include <utility>

namespace ombrin {

namespace {

constexpr std::size_t kChunkSize = 512; ///< rows; a full piece is cut in two
constexpr std::uint32_t kNoSlot = RowId::kNoSlot;

std::uint32_t HashOf(std::string_view key) { return static_cast<std::uint32_t>(std::hash<std::string_view>{}(key)); }

} // namespace

RowList::RowList(KeyOf keyOf) : keyOf(keyOf) {}

RowList::~RowList() = default;

bool RowList::Has(RowId row) const {
    return row.slot < rows.size() && rows[row.slot].alive && rows[row.slot].generation == row.generation;
}

const RowList::Row& RowList::Of(RowId row) const {
    if (!Has(row)) throw RuntimeError(ErrorNumber::InvalidProcedureCall, "no such row");
    return rows[row.slot];
}

RowList::Row& RowList::Of(RowId row) { return const_cast<Row&>(std::as_const(*this).Of(row)); }

const RowList::More& RowList::Extra(RowId row) const {
    static const More kNothing;
    const Row& found = Of(row);
    return found.more ? *found.more : kNothing;
}

RowList::More& RowList::ExtraOf(RowId row) {
    Row& found = Of(row);
    if (!found.more) found.more = std::make_unique<More>();
    return *found.more;
}

RowId RowList::At(std::size_t position) const {
    for (const auto& chunk : chunks) {
        if (position < chunk->slots.size()) return IdOf(chunk->slots[position]);
        position -= chunk->slots.size();
    }
    return {};
}

std::size_t RowList::PositionOf(RowId row) const {
    const Chunk* own = Of(row).chunk;
    std::size_t before = 0;
    for (const auto& chunk : chunks) {
        if (chunk.get() == own) break;
        before += chunk->slots.size();
    }
    const auto at = std::find(own->slots.begin(), own->slots.end(), row.slot);
    return before + static_cast<std::size_t>(at - own->slots.begin());
}

RowId RowList::Find(std::string_view key) const {
    if (buckets.empty()) return {};
    const std::uint32_t hash = HashOf(key);
    for (std::uint32_t slot = buckets[hash & (buckets.size() - 1)].first; slot != kNoSlot; slot = rows[slot].next)
        if (rows[slot].hash == hash && keyOf(rows[slot].text) == key) return IdOf(slot);
    return {};
}

/// Into the chain of its hash's bucket, which is in the order of the sequence numbers.
void RowList::Index(std::uint32_t slot) {
    Row& row = rows[slot];
    Bucket& bucket = buckets[row.hash & (buckets.size() - 1)];
    std::uint32_t behind = bucket.last;
    while (behind != kNoSlot && rows[behind].sequence > row.sequence) behind = rows[behind].previous;
    row.previous = behind;
    row.next = behind == kNoSlot ? bucket.first : rows[behind].next;
    (behind == kNoSlot ? bucket.first : rows[behind].next) = slot;
    (row.next == kNoSlot ? bucket.last : rows[row.next].previous) = slot;
}

void RowList::Unindex(std::uint32_t slot) {
    const Row& row = rows[slot];
    Bucket& bucket = buckets[row.hash & (buckets.size() - 1)];
    (row.previous == kNoSlot ? bucket.first : rows[row.previous].next) = row.next;
    (row.next == kNoSlot ? bucket.last : rows[row.next].previous) = row.previous;
}

void RowList::Rehash(std::size_t bucketCount) {
    buckets.assign(bucketCount, {});
    for (const auto& chunk : chunks)
        for (const std::uint32_t slot : chunk->slots) Index(slot);
}

void RowList::Place(std::uint32_t slot, Spot spot) {
    auto [at, position] = spot;
    if (chunks.empty()) chunks.push_back(std::make_unique<Chunk>());
    if (chunks[at]->slots.size() == kChunkSize) {
        const bool atEnd = at + 1 == chunks.size() && position == kChunkSize;
        const std::size_t kept = atEnd ? kChunkSize : kChunkSize / 2; // a list that grows at its end fills its pieces
        auto cut = std::make_unique<Chunk>();
        auto& full = chunks[at]->slots;
        cut->slots.assign(full.begin() + static_cast<std::ptrdiff_t>(kept), full.end());
        full.resize(kept);
        for (const std::uint32_t moved : cut->slots) rows[moved].chunk = cut.get();
        chunks.insert(chunks.begin() + static_cast<std::ptrdiff_t>(at) + 1, std::move(cut));
        if (position > kept || atEnd) {
            position -= kept;
            ++at;
        }
    }
    auto& slots = chunks[at]->slots;
    slots.insert(slots.begin() + static_cast<std::ptrdiff_t>(position), slot);
    rows[slot].chunk = chunks[at].get();
}

RowId RowList::Insert(Spot spot, std::string_view text) {
    std::uint32_t slot = 0;
    if (freeSlots.empty()) {
        slot = static_cast<std::uint32_t>(rows.size());
        rows.emplace_back();
    } else {
        slot = freeSlots.back();
        freeSlots.pop_back();
    }
    Row& row = rows[slot];
    row.text = text;
    row.hash = HashOf(keyOf(row.text));
    row.alive = true;
    row.generation = nextGeneration++;
    row.sequence = nextSequence++;
    ++count;
    Place(slot, spot);
    if (count > buckets.size())
        Rehash(std::max<std::size_t>(16, buckets.size() * 2));
    else
        Index(slot);
    if (onChange) Note(RowChange::What::Added, IdOf(slot), PositionOf(IdOf(slot)));
    return IdOf(slot);
}

RowId RowList::Append(std::string_view text) {
    return Insert(chunks.empty() ? Spot{0, 0} : Spot{chunks.size() - 1, chunks.back()->slots.size()}, text);
}

RowId RowList::InsertSorted(std::string_view text) {
    const auto isBefore = [&](std::uint32_t slot) { return !LessInSortedList(text, rows[slot].text); };
    // The last piece that begins with a row before the new one, and the place behind the last such row in it.
    const auto behind = std::partition_point(chunks.begin(), chunks.end(),
                                             [&](const auto& chunk) { return isBefore(chunk->slots.front()); });
    if (behind == chunks.begin()) return Insert({0, 0}, text);
    const auto& slots = (*(behind - 1))->slots;
    const auto offset = std::partition_point(slots.begin(), slots.end(), isBefore) - slots.begin();
    return Insert({static_cast<std::size_t>(behind - chunks.begin()) - 1, static_cast<std::size_t>(offset)}, text);
}

void RowList::Remove(RowId id) {
    Row& row = Of(id);
    const std::size_t position = onChange ? PositionOf(id) : 0;
    Unindex(id.slot);
    auto& slots = row.chunk->slots;
    slots.erase(std::find(slots.begin(), slots.end(), id.slot));
    if (slots.empty())
        chunks.erase(std::find_if(chunks.begin(), chunks.end(), [&](const auto& c) { return c.get() == row.chunk; }));
    row = Row{};
    freeSlots.push_back(id.slot);
    --count;
    Note(RowChange::What::Removed, id, position);
}

void RowList::Clear() {
    if (count == 0) return;
    rows.clear();
    freeSlots.clear();
    chunks.clear();
    buckets.clear();
    count = 0;
    journal = {true, {}};
    if (onChange) onChange();
}

void RowList::SortBySubItem(std::size_t column) {
    static const std::string kNone;
    const auto key = [&](std::uint32_t slot) -> const std::string& {
        const More* more = rows[slot].more.get();
        return more != nullptr && column >= 1 && column <= more->subItems.size() ? more->subItems[column - 1] : kNone;
    };
    const auto isLess = [&](std::uint32_t a, std::uint32_t b) { return LessInSortedList(key(a), key(b)); };
    std::vector<std::uint32_t> order;
    order.reserve(count);
    ForEach([&](RowId row) { order.push_back(row.slot); });
    if (std::is_sorted(order.begin(), order.end(), isLess)) return;
    std::stable_sort(order.begin(), order.end(), isLess);
    auto next = order.begin();
    for (const auto& chunk : chunks)
        for (std::uint32_t& slot : chunk->slots) {
            slot = *next++;
            rows[slot].chunk = chunk.get();
            rows[slot].sequence = nextSequence++;
        }
    Rehash(buckets.size()); // rows of one key are chained in their order
    journal = {true, {}};
    if (onChange) onChange();
}

void RowList::SetText(RowId id, std::string_view text) {
    Row& row = Of(id);
    if (row.text == text) return;
    Unindex(id.slot);
    row.text = text;
    row.hash = HashOf(keyOf(row.text));
    Index(id.slot);
    Altered(id);
}

void RowList::SetImage(RowId row, int image) {
    if (Of(row).image == image) return;
    Of(row).image = static_cast<std::int16_t>(image);
    Altered(row);
}

std::optional<Colour> RowList::RowColour(RowId row) const {
    return Of(row).hasColour ? std::optional(Of(row).colour) : std::nullopt;
}

void RowList::SetRowColour(RowId row, Colour colour) {
    if (RowColour(row) == colour) return;
    Of(row).colour = colour;
    Of(row).hasColour = true;
    Altered(row);
}

void RowList::SetSelected(RowId row, bool on) {
    if (Of(row).selected == on) return;
    Of(row).selected = on;
    Altered(row);
}

void RowList::SetTag(RowId row, std::string_view tag) { ExtraOf(row).tag = tag; }

void RowList::SetTip(RowId row, std::string_view tip) {
    ExtraOf(row).tip = tip;
    Altered(row);
}

std::string RowList::SubItem(RowId row, std::size_t column) const {
    const auto& items = Extra(row).subItems;
    return column >= 1 && column <= items.size() ? items[column - 1] : std::string();
}

void RowList::SetSubItem(RowId row, std::size_t column, std::string_view text) {
    auto& items = ExtraOf(row).subItems;
    if (items.size() < column) items.resize(column);
    items.at(column - 1) = text;
    Altered(row);
}

void RowList::Journal(std::function<void()> changed) {
    onChange = std::move(changed);
    journal = {true, {}};
}

RowJournal RowList::TakeJournal() { return std::exchange(journal, {}); }

void RowList::Altered(RowId row) {
    if (onChange) Note(RowChange::What::Altered, row, PositionOf(row));
}

void RowList::Note(RowChange::What what, RowId row, std::size_t position) {
    if (!onChange) return;
    if (!journal.everything) {
        if (journal.changes.size() == RowJournal::kBound)
            journal = {true, {}};
        else
            journal.changes.push_back({what, row, position});
    }
    onChange();
}

} // namespace ombrin
