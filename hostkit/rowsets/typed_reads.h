// The reads of a recordset, from the cells of its current row.
#pragma once

#include <string>
#include <string_view>

#include "hostkit/rowsets/cell.h"
#include "hostkit/store/company_recordset.h"

namespace ledgerwick::rowsets {

// `Rows` has `Cell cell(const FieldName&)`, which raises when there is nothing to read, and
// `VariantKind kindOf(const FieldName&)`.
template <class Rows>
class TypedReads : public store::CompanyRecordset {
  public:
    using Recordset::Value;

    Variant Value(const FieldName& name) final {
        const Cell cell = rows().cell(name);
        return toVariant(cell, rows().kindOf(name));
    }
    bool IsNull(const FieldName& name) final {
        return rows().cell(name).storage == Cell::Storage::Null;
    }
    bool GetBoolean(const FieldName& name) final { return toBoolean(rows().cell(name), name); }
    std::int16_t GetInt16(const FieldName& name) final { return toInt16(rows().cell(name), name); }
    std::int32_t GetInt32(const FieldName& name) final { return toInt32(rows().cell(name), name); }
    float GetSingle(const FieldName& name) final { return toSingle(rows().cell(name), name); }
    double GetDouble(const FieldName& name) final {
        const Cell cell = rows().cell(name);
        if (rows().kindOf(name) == VariantKind::Single) return Value(name).toDouble(name.text());
        return toDouble(cell, name);
    }
    Currency GetCurrency(const FieldName& name) final {
        return toCurrency(rows().cell(name), name);
    }
    Date GetDate(const FieldName& name) final { return toDate(rows().cell(name), name); }
    std::string_view GetText(const FieldName& name) final {
        const Cell cell = rows().cell(name);
        if (cell.storage == Cell::Storage::Text) return cell.text;
        return toText(cell, rows().kindOf(name), name, text_);
    }

  private:
    Rows& rows() noexcept { return static_cast<Rows&>(*this); }

    std::string text_;  // of a field that is no text
};

}  // namespace ledgerwick::rowsets
