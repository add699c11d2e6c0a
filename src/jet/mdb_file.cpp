#include "jet/mdb_file.h"

#include "jet/bytes.h"
#include "jet/refusal.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <sys/stat.h>

// Without glib's header before it, that of libmdb takes it for one of C.
#include <glib.h>
#include <mdbtools.h>

namespace veldrane::jet {
namespace {

constexpr std::uint8_t kDataPage = 1;
constexpr int kOwnerAt = 4;

constexpr std::uint8_t kMapOfPages = 1;
constexpr std::size_t kMapAtLeast = 5;

// Behind the number of rows on a page stand their places, two bytes each: where a row starts, and flags. One flag is
// of a row that is gone, or that has moved and is met where it is now.
constexpr std::size_t kRowPlace = 2;
constexpr int kIsNoRow = 0x4000;
constexpr int kStartBits = 0x1FFF;

// A place is the number of a page, and behind it these bits for a row.
constexpr unsigned kRowBits = 8;

// libmdb takes for zeros what the file lacks of its last page.
void RequirePage(const MdbHandle* mdb, std::uint32_t number)
{
    struct stat facts = {};
    if (fstat(fileno(mdb->f->stream), &facts) != 0 || facts.st_size / mdb->fmt->pg_size <= number)
        throw Damaged("page " + std::to_string(number) + " is not there");
}

void ReadPage(MdbHandle* mdb, std::uint32_t number)
{
    RequirePage(mdb, number);
    if (mdb_read_pg(mdb, number) != mdb->fmt->pg_size)
        throw Damaged("page " + std::to_string(number) + " can't be read");
}

Refusal DisorderedRow()
{
    return Damaged("a row is in disorder");
}

// A table of libmdb's, from the page of its definition alone.
class MdbTable
{
  public:
    MdbTable(MdbHandle* mdb, std::uint32_t definitionPage)
    {
        entry_.mdb = mdb;
        entry_.object_type = MDB_TABLE;
        entry_.table_pg = definitionPage;
        table_.reset(mdb_read_table(&entry_));
        if (table_ == nullptr)
            throw Damaged("a table's definition is not where it should be");
        mdb_read_columns(table_.get());
        CheckMap();
    }
    MdbTable(const MdbTable&) = delete; // libmdb's table points to the entry
    MdbTable& operator=(const MdbTable&) = delete;
    ~MdbTable() = default;

    [[nodiscard]] std::uint32_t NextPage(std::uint32_t page) const
    {
        const gint32 next =
            mdb_map_find_next(entry_.mdb, table_->usage_map, static_cast<unsigned>(table_->map_sz), page);
        if (next < 0)
            throw Damaged("nothing tells which pages are a table's");
        return static_cast<std::uint32_t>(next);
    }

    // The cells of the rows on the current page, if it is one of the table's. They stand in `page`, which becomes a
    // copy.
    [[nodiscard]] std::vector<Cells> Rows(std::string& page) const
    {
        MdbHandle* mdb = entry_.mdb;
        page.assign(reinterpret_cast<const char*>(mdb->pg_buf), static_cast<std::size_t>(mdb->fmt->pg_size));
        std::vector<Cells> rows;
        if (mdb->pg_buf[0] != kDataPage || mdb_get_int32(mdb->pg_buf, kOwnerAt) != static_cast<long>(entry_.table_pg))
            return rows;
        const Bytes bytes(page);
        const std::size_t countAt = mdb->fmt->row_count_offset;
        const std::size_t count = bytes.U16(countAt);
        const std::size_t rowsAt = countAt + kRowPlace * (count + 1);
        if (rowsAt > page.size())
            throw DisorderedRow();
        for (std::size_t row = 0; row < count; ++row) {
            const int place = bytes.U16(countAt + kRowPlace * (row + 1));
            if ((place & kIsNoRow) != 0)
                continue;
            if (static_cast<std::size_t>(place & kStartBits) < rowsAt)
                throw DisorderedRow();
            rows.push_back(Crack(bytes, static_cast<int>(row)));
        }
        return rows;
    }

  private:
    // The map of a table's pages is bits behind the number of the first page (kind 0), or the numbers of pages with
    // such bits (kind 1). libmdb takes one that is missing for one that is there, and ends the process over a page that
    // isn't.
    void CheckMap() const
    {
        if (table_->usage_map == nullptr || table_->map_sz < kMapAtLeast)
            throw Damaged("nothing tells which pages are a table's");
        const Bytes map({reinterpret_cast<const char*>(table_->usage_map), table_->map_sz});
        if (map.U8(0) == kMapOfPages)
            for (std::size_t at = 1; at + 4 <= map.Size(); at += 4)
                if (const std::uint32_t page = map.U32(at); page != 0)
                    ReadPage(entry_.mdb, page);
    }

    // A row begins with the number of its columns, which are fewer than the table's if it is older than some of them.
    // What starts elsewhere mostly seems to have more, or none.
    [[nodiscard]] static unsigned ColumnsOf(const Bytes& page, std::size_t start)
    {
        return page.Size() == PageSize(Version::Jet3) ? page.U8(start) : page.U16(start);
    }

    [[nodiscard]] Cells Crack(const Bytes& page, int row) const
    {
        int start = 0;
        std::size_t size = 0;
        std::vector<MdbField> fields(table_->num_cols);
        if (mdb_find_row(entry_.mdb, row, &start, &size) != 0 ||
            mdb_crack_row(table_.get(), start & kStartBits, size, fields.data()) < 0)
            throw DisorderedRow();
        const unsigned columns = ColumnsOf(page, static_cast<std::size_t>(start & kStartBits));
        if (columns == 0 || columns > table_->num_cols)
            throw DisorderedRow();
        Cells cells;
        for (const MdbField& field : fields)
            if (field.is_null != 0)
                cells.emplace_back();
            else
                cells.emplace_back(
                    page.Slice(static_cast<std::size_t>(field.start), static_cast<std::size_t>(field.siz)));
        return cells;
    }

    MdbCatalogEntry entry_{};
    std::unique_ptr<MdbTableDef, decltype(&mdb_free_tabledef)> table_{nullptr, mdb_free_tabledef};
};

} // namespace

struct MdbFile::Handle
{
    std::unique_ptr<MdbHandle, decltype(&mdb_close)> Mdb;
};

MdbFile::MdbFile(const std::string& path, const HeaderPage& header)
    : header_(header), text_(header.FileVersion, header.CodePage),
      handle_(new Handle{{mdb_open(path.c_str(), MDB_NOFLAGS), mdb_close}})
{
    if (handle_->Mdb == nullptr)
        throw Damaged("its first page is in disorder");
}

MdbFile::~MdbFile() = default;

std::string MdbFile::Page(std::uint32_t number)
{
    MdbHandle* mdb = handle_->Mdb.get();
    ReadPage(mdb, number);
    return {reinterpret_cast<const char*>(mdb->pg_buf), PageSize(header_.FileVersion)};
}

void MdbFile::ForEachRow(std::uint32_t definitionPage, const std::function<void(const Cells&)>& take)
{
    MdbHandle* mdb = handle_->Mdb.get();
    RequirePage(mdb, definitionPage);
    const MdbTable table(mdb, definitionPage);
    std::string bytes;
    std::uint32_t page = 0;
    for (std::uint32_t next = table.NextPage(page); next > page; next = table.NextPage(page)) {
        page = next;
        ReadPage(mdb, page);
        for (const Cells& cells : table.Rows(bytes))
            take(cells);
    }
}

std::string MdbFile::StoredPiece(std::uint32_t place)
{
    RequirePage(handle_->Mdb.get(), place >> kRowBits);
    void* page = nullptr;
    int start = 0;
    std::size_t size = 0;
    if (mdb_find_pg_row(handle_->Mdb.get(), static_cast<int>(place), &page, &start, &size) != 0)
        throw Damaged("a long value is not where it should be");
    const std::string_view bytes(static_cast<const char*>(page), PageSize(header_.FileVersion));
    return std::string(Bytes(bytes).Slice(static_cast<std::size_t>(start), size));
}

} // namespace veldrane::jet
