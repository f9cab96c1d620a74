#include "ledgerwick/records/row_at_hand.h"

#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

// A table by the beginning of its fields' names, its key, and the field that tells whose row it is.
struct KeyedTable {
    std::string_view prefix;
    std::string_view name;
    FieldName key;
    FieldName owner;
};

// A longer beginning stands before a shorter one.
constexpr KeyedTable tables[] = {
    {"PRTA", "PREmploymentsAddInfo", field::PRTAID, field::PRTAPRTID},
    {"PRT", "PREmployments", field::PRTID, field::PRTNAID},
    {"PRPINAID", "PRPayImport", field::PRPINAID, field::PRPINAID},
    {"PRPIPay", "PRPayImport", field::PRPINAID, field::PRPINAID},
    {"PRP", "PRPay", field::PRPID, field::PRPNAID},
    {"PRE", "PREmployeeDetails", field::PRENAID, field::PRENAID},
    {"PS", "PensionSchemes", field::PSID, field::PRENAID},
    {"NA", "Customers", field::NAID, field::NAID},
    {"Ord", "Orders", field::OrdID, field::OrdNAID},
};

// A number that may be missing, or none.
std::int32_t numberIn(Recordset& rs, const FieldName& name) {
    try {
        return rs.IsNull(name) ? 0 : rs.GetInt32(name);
    } catch (const Error&) {
        return 0;
    }
}

std::int32_t ownerOf(Recordset& rs, const KeyedTable& table) {
    for (const FieldName& name :
         {table.owner, field::NAID, field::PRENAID, field::PRTNAID, field::PRPNAID}) {
        if (table.key.id() == field::PRTAID.id()) break;  // an employment stands there
        if (const std::int32_t naid = numberIn(rs, name)) return naid;
    }
    return 0;
}

}  // namespace

const FieldName* personFieldOf(std::string_view table) {
    for (const KeyedTable& each : tables) {
        const bool isOfPayroll = each.name != "Orders" && each.name != "PensionSchemes" &&
                                 each.name != "PREmploymentsAddInfo";
        if (isOfPayroll && equalsIgnoringCase(each.name, table)) return &each.owner;
    }
    return nullptr;
}

ErrorRow rowAtHand(Recordset& rs, std::string_view source, std::string_view table) {
    const KeyedTable* found = nullptr;
    for (const KeyedTable& each : tables) {
        const bool isOf = equalsIgnoringCase(source.substr(0, each.prefix.size()), each.prefix);
        if (isOf && source.find(' ') == std::string_view::npos && source.find('_') == source.npos) {
            found = &each;
            break;
        }
    }
    for (const KeyedTable& each : tables) {
        if (!found && each.name == table) found = &each;
    }
    if (!found) return {std::string(table)};
    const std::int32_t naid = ownerOf(rs, *found);
    const bool keyedByPerson = found->key.id() == found->owner.id();
    return {std::string(found->name), keyedByPerson ? naid : numberIn(rs, found->key), naid};
}

}  // namespace ledgerwick
