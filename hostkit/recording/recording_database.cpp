#include "hostkit/recording/recording_database.h"

#include <algorithm>
#include <utility>

#include "hostkit/recording/statement_parts.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {

using recording::ChangeKind;
using recording::FieldChange;
using recording::FollowedTable;
using recording::RowChange;
using recording::StatementParts;

namespace {

const FollowedTable* followedTable(std::string_view name) {
    static const std::vector<FollowedTable> tables{
        {"PRPay", field::PRPID, field::PRPNAID},
        {"Orders", field::OrdID, field::OrdNAID},
        {"PREmployments", field::PRTID, field::PRTNAID},
        {"PRPayImport", "", field::PRPINAID, {field::PRPIPay}},
    };
    const auto found = std::find_if(tables.begin(), tables.end(), [name](const auto& table) {
        return equalsIgnoringCase(table.name, name);
    });
    return found == tables.end() ? nullptr : &*found;
}

bool hasKey(const FollowedTable& table) {
    return !table.key.text().empty();
}

std::int32_t ownerIn(Recordset& row, const FollowedTable& table) {
    return row.IsNull(table.owner) ? 0 : row.GetInt32(table.owner);
}

// The statement with key and owner among its fields, without which nobody can identify the row.
std::string withKey(std::string_view sql, const StatementParts& parts, const FollowedTable& table) {
    std::string wanted;
    for (const FieldName& field : {table.key, table.owner}) {
        if (!recording::holdsWord(parts.columns, field.text())) {
            wanted.append(field.text()).append(", ");
        }
    }
    if (parts.columns.find('*') != std::string_view::npos || wanted.empty())
        return std::string(sql);
    const auto place = static_cast<std::size_t>(parts.columns.data() - sql.data());
    return std::string(sql.substr(0, place)) + wanted + std::string(sql.substr(place));
}

// A row that a statement is going to change, as it stands before.
struct RowBefore {
    Variant key;
    std::int32_t naid;
    std::vector<Variant> values;
};

std::vector<Variant> valuesIn(Recordset& row, const std::vector<std::string_view>& fields) {
    std::vector<Variant> values;
    values.reserve(fields.size());
    for (const std::string_view field : fields) values.push_back(row.Value(field));
    return values;
}

std::string columnsOf(const FollowedTable& table, const std::vector<std::string_view>& fields) {
    std::string columns = std::string(table.key.text()) + ", " + std::string(table.owner.text());
    for (const std::string_view field : fields) columns.append(", ").append(field);
    return columns;
}

std::vector<RowBefore> rowsFoundBy(Database& database, const FollowedTable& table,
                                   const StatementParts& parts) {
    std::string sql =
        "SELECT " + columnsOf(table, parts.assigned) + " FROM " + std::string(parts.source);
    if (!parts.condition.empty()) sql.append(" WHERE ").append(parts.condition);
    const auto rows = database.OpenRecordset(sql, RecordsetType::Snapshot);
    std::vector<RowBefore> found;
    for (; !rows->Eof(); rows->MoveNext()) {
        found.push_back(
            {rows->Value(table.key), ownerIn(*rows, table), valuesIn(*rows, parts.assigned)});
    }
    rows->Close();
    return found;
}

std::vector<Variant> valuesNow(Database& database, const FollowedTable& table, const Variant& key,
                               const std::vector<std::string_view>& fields) {
    const auto row = database.OpenRecordset(
        "SELECT " + columnsOf(table, fields) + " FROM " + std::string(table.name) + " WHERE " +
            std::string(table.key.text()) + " = " + key.toText(),
        RecordsetType::Snapshot);
    auto values = valuesIn(*row, fields);
    row->Close();
    return values;
}

}  // namespace

// ---- rows written through a set -----------------------------------------------------------------

class RecordingRecordset : public ForwardingRecordset {
  public:
    RecordingRecordset(RecordsetRef real, RecordingDatabase& owner, const FollowedTable& table)
        : ForwardingRecordset(std::move(real)), owner_(owner), table_(table) {}

    void AddNew() override {
        ForwardingRecordset::AddNew();
        begin(ChangeKind::Added);
    }
    void Edit() override {
        ForwardingRecordset::Edit();
        begin(ChangeKind::Changed);
    }
    using ForwardingRecordset::Value;
    void Value(const FieldName& name, const Variant& value) override {
        const std::string_view field = owner_.kept(name.text());
        const auto seen = std::find_if(change_.fields.begin(), change_.fields.end(),
                                       [field](const auto& each) { return each.field == field; });
        Variant before = seen == change_.fields.end() ? real().Value(name) : Variant();
        real().Value(name, value);
        if (seen == change_.fields.end()) change_.fields.push_back({field, std::move(before), {}});
    }
    void Update() override {
        for (FieldChange& field : change_.fields) field.to = real().Value(field.field);
        change_.naid = ownerIn(real(), table_);
        if (change_.kind == ChangeKind::Changed) change_.key = real().Value(table_.key);
        ForwardingRecordset::Update();
        if (change_.kind == ChangeKind::Added) change_.key = keyOfNewRow();
        owner_.note(std::move(change_));
        change_ = {};
    }

  private:
    void begin(ChangeKind kind) {
        change_ = {};
        change_.kind = kind;
        change_.table = table_.name;
    }

    // Leaves the set where it stands.
    Variant keyOfNewRow() {
        const bool behindLast = real().Eof();
        const ledgerwick::Bookmark back = behindLast ? ledgerwick::Bookmark() : real().Bookmark();
        real().Bookmark(real().LastModified());
        Variant key = real().Value(table_.key);
        if (behindLast) {
            real().MoveLast();
            real().MoveNext();
        } else {
            real().Bookmark(back);
        }
        return key;
    }

    RecordingDatabase& owner_;
    const FollowedTable& table_;
    RowChange change_;
};

namespace {

// Opens by way of the recording, so that its sets are followed as well.
class RecordingQuery : public QueryDef {
  public:
    RecordingQuery(RecordingDatabase& owner, std::string_view sql) : owner_(owner), sql_(sql) {}
    RecordsetRef OpenRecordset(RecordsetType type, FieldList reads) override {
        return owner_.OpenRecordset(sql_, type, reads);
    }

  private:
    RecordingDatabase& owner_;
    std::string sql_;
};

}  // namespace

// ---- the database -------------------------------------------------------------------------------

RecordingDatabase::RecordingDatabase(std::shared_ptr<Database> recorded)
    : ForwardingDatabase(*recorded), recorded_(std::move(recorded)) {}

RecordingDatabase::~RecordingDatabase() = default;

// What a field held is read for the record too, so that a followed set is opened with all fields.
RecordsetRef RecordingDatabase::OpenRecordset(std::string_view sql, RecordsetType type,
                                              FieldList reads) {
    if (type == RecordsetType::Snapshot) return real().OpenRecordset(sql, type, reads);
    const StatementParts parts = recording::partsOf(sql);
    const FollowedTable* table = followedTable(parts.table);
    if (table == nullptr || !hasKey(*table)) return real().OpenRecordset(sql, type, reads);
    return std::make_shared<RecordingRecordset>(
        real().OpenRecordset(withKey(sql, parts, *table), type), *this, *table);
}

std::shared_ptr<QueryDef> RecordingDatabase::CreateQueryDef(std::string_view,
                                                            std::string_view sql) {
    return std::make_shared<RecordingQuery>(*this, sql);
}

void RecordingDatabase::Execute(std::string_view sql, std::int32_t option) {
    const StatementParts parts = recording::partsOf(sql);
    const FollowedTable* table = followedTable(parts.table);
    if (table == nullptr) return real().Execute(sql, option);
    if (equalsIgnoringCase(parts.verb, "DELETE")) {
        noteRemoved(*table, parts.condition);
        return real().Execute(sql, option);
    }
    if (!equalsIgnoringCase(parts.verb, "UPDATE") || !hasKey(*table)) {
        return real().Execute(sql, option);
    }
    const std::vector<RowBefore> before = rowsFoundBy(real(), *table, parts);
    real().Execute(sql, option);
    for (const RowBefore& row : before) {
        RowChange change{ChangeKind::Changed, table->name, row.key, row.naid, {}};
        const auto now = valuesNow(real(), *table, row.key, parts.assigned);
        for (std::size_t i = 0; i < now.size(); ++i) {
            change.fields.push_back({kept(parts.assigned[i]), row.values[i], now[i]});
        }
        note(std::move(change));
    }
}

void RecordingDatabase::noteRemoved(const FollowedTable& table, std::string_view condition) {
    std::string sql = "SELECT * FROM " + std::string(table.name);
    if (!condition.empty()) sql.append(" WHERE ").append(condition);
    const auto rows = real().OpenRecordset(sql, RecordsetType::Snapshot);
    for (; !rows->Eof(); rows->MoveNext()) {
        RowChange change{ChangeKind::Removed, table.name, {}, ownerIn(*rows, table), {}};
        if (hasKey(table)) change.key = rows->Value(table.key);
        for (const FieldName& field : table.content) {
            change.fields.push_back({field.text(), rows->Value(field), {}});
        }
        note(std::move(change));
    }
    rows->Close();
}

// A name as it was first written, whose text stays.
std::string_view RecordingDatabase::kept(std::string_view name) {
    const auto found = names_.find(name);
    return found != names_.end() ? *found : *names_.emplace(name).first;
}

void RecordingDatabase::note(RowChange change) {
    if (change.kind == ChangeKind::Removed || change.key.isEmpty()) {
        changes_.push_back(std::move(change));
        return;
    }
    const std::string place = std::string(change.table) + ' ' + change.key.toText();
    const auto [known, isNew] = places_.emplace(place, changes_.size());
    if (isNew) {
        changes_.push_back(std::move(change));
        return;
    }
    std::vector<FieldChange>& fields = changes_[known->second].fields;
    for (FieldChange& field : change.fields) {
        const auto earlier =
            std::find_if(fields.begin(), fields.end(), [&field](const FieldChange& each) {
                return equalsIgnoringCase(each.field, field.field);
            });
        if (earlier == fields.end()) {
            fields.push_back(std::move(field));
        } else {
            earlier->to = std::move(field.to);
        }
    }
}

std::vector<RowChange> RecordingDatabase::changes() const {
    std::vector<RowChange> net;
    for (const RowChange& change : changes_) {
        RowChange row{change.kind, change.table, change.key, change.naid, {}};
        for (const FieldChange& field : change.fields) {
            if (!(field.from == field.to)) row.fields.push_back(field);
        }
        if (change.kind != ChangeKind::Changed || !row.fields.empty())
            net.push_back(std::move(row));
    }
    return net;
}

}  // namespace ledgerwick
