// The rows of a list, which are the only store of their records: in row order, found by key, and told by their changes.
// Adding, finding, changing and removing cost the same in a list of ten rows and in one of ten thousand.
#pragma once

#include "controls/control.h"

#include <cstdint>
#include <deque>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin {

/// Names a row for as long as it lives; a row that comes later never has the same one.
struct RowId {
    static constexpr std::uint32_t kNoSlot = std::numeric_limits<std::uint32_t>::max();
    std::uint32_t slot = kNoSlot, generation = 0;
    explicit operator bool() const { return slot != kNoSlot; }
    bool operator==(const RowId&) const = default;
};

struct RowChange {
    enum class What : std::uint8_t { Added, Removed, Altered } what;
    RowId row;
    std::size_t position; ///< at the moment of the change
};

/// What has changed since the last look, in order. With `everything` the rows have to be read anew.
struct RowJournal {
    static constexpr std::size_t kBound = 4096;
    bool everything = false;
    std::vector<RowChange> changes;
};

class RowList {
    struct Chunk {
        std::vector<std::uint32_t> slots;
    };

public:
    /// The part of a row's text by which it is found.
    using KeyOf = std::string_view (*)(std::string_view text);
    static std::string_view WholeText(std::string_view text) { return text; }

    explicit RowList(KeyOf keyOf = WholeText);
    ~RowList();
    RowList(const RowList&) = delete;
    RowList& operator=(const RowList&) = delete;

    std::size_t Count() const { return count; }
    bool Has(RowId row) const;
    /// Behind the last position: no row.
    RowId At(std::size_t position) const;
    std::size_t PositionOf(RowId row) const;
    /// Every row, in order.
    template <class Visit>
    void ForEach(const Visit& visit) const {
        for (const auto& chunk : chunks)
            for (const std::uint32_t slot : chunk->slots) visit(IdOf(slot));
    }
    /// The first row with this key, compared exactly; duplicates are legal.
    RowId Find(std::string_view key) const;

    RowId Append(std::string_view text);
    /// Behind the rows that are not greater, in a list that was filled by this call alone.
    RowId InsertSorted(std::string_view text);
    void Remove(RowId row);
    void Clear();
    /// Brings the rows into the order of a further column (from 1), compared as in a sorted list; equal ones keep
    /// theirs. For short lists: it walks all rows.
    void SortBySubItem(std::size_t column);

    // Of a row that is there:
    const std::string& Text(RowId row) const { return Of(row).text; }
    void SetText(RowId row, std::string_view text);
    int Image(RowId row) const { return Of(row).image; } ///< index into the image list, 0 for none
    void SetImage(RowId row, int image);
    std::optional<Colour> RowColour(RowId row) const;
    void SetRowColour(RowId row, Colour colour);
    bool Selected(RowId row) const { return Of(row).selected; }
    void SetSelected(RowId row, bool on);
    const std::string& Tag(RowId row) const { return Extra(row).tag; }
    void SetTag(RowId row, std::string_view tag);
    const std::string& Tip(RowId row) const { return Extra(row).tip; }
    void SetTip(RowId row, std::string_view tip);
    /// Columns behind the first, counted from 1; empty where none was set.
    std::string SubItem(RowId row, std::size_t column) const;
    void SetSubItem(RowId row, std::size_t column, std::string_view text);
    std::size_t SubItemCount(RowId row) const { return Extra(row).subItems.size(); }

    /// Keeps a journal from now on, and calls back at each change.
    void Journal(std::function<void()> changed);
    RowJournal TakeJournal();

private:
    struct More {
        std::string tag, tip;
        std::vector<std::string> subItems;
    };
    struct Row {
        std::string text;
        std::unique_ptr<More> more;
        Chunk* chunk = nullptr;
        std::uint64_t sequence = 0; ///< grows along the rows of one key, so that the first one is known
        std::uint32_t hash = 0, previous = RowId::kNoSlot, next = RowId::kNoSlot; ///< chain of one bucket
        std::uint32_t generation = 0;
        Colour colour = 0;
        std::int16_t image = 0;
        bool alive = false, hasColour = false, selected = false;
    };
    struct Bucket {
        std::uint32_t first = RowId::kNoSlot, last = RowId::kNoSlot;
    };

    Row& Of(RowId row);
    const Row& Of(RowId row) const;
    const More& Extra(RowId row) const;
    More& ExtraOf(RowId row);
    RowId IdOf(std::uint32_t slot) const { return {slot, rows[slot].generation}; }
    /// A place among the rows: a piece, and a position in it.
    struct Spot {
        std::size_t chunk, offset;
    };
    RowId Insert(Spot spot, std::string_view text);
    void Place(std::uint32_t slot, Spot spot);
    void Index(std::uint32_t slot);
    void Unindex(std::uint32_t slot);
    void Rehash(std::size_t bucketCount);
    void Note(RowChange::What what, RowId row, std::size_t position);
    void Altered(RowId row);

    KeyOf keyOf;
    std::size_t count = 0;
    std::deque<Row> rows; ///< by slot; growing moves none of them
    std::vector<std::uint32_t> freeSlots;
    std::vector<std::unique_ptr<Chunk>> chunks; ///< the rows' order, in pieces
    std::vector<Bucket> buckets;
    std::uint64_t nextSequence = 1;
    std::uint32_t nextGeneration = 1;
    std::function<void()> onChange;
    RowJournal journal;
};

} // namespace ombrin
