// A row in which fields that cannot be read give a harmless value, so that a step that failed at one
// of them can go on to the next.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hostkit/forwarding/forwarding_database.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::audit {

// Passes every read on, but for the fields that are mended: those are 0, "", False, never Null.
class MendedRow : public ForwardingRecordset {
  public:
    using ForwardingRecordset::ForwardingRecordset;
    using ForwardingRecordset::Value;

    // Counts a field of this row as mended.
    void mend(std::string_view field) { mended_.emplace_back(field); }
    // To be called on the next row.
    void forget() { mended_.clear(); }
    // Whether the field was mended in this row.
    bool isMended(std::string_view field) const {
        return std::any_of(mended_.begin(), mended_.end(), [field](const std::string& each) {
            return equalsIgnoringCase(each, field);
        });
    }

    // clang-format off
    Variant Value(const FieldName& n) override { return mended(n) ? Variant(std::int16_t{0}) : real().Value(n); }
    bool IsNull(const FieldName& n) override { return !mended(n) && real().IsNull(n); }
    bool GetBoolean(const FieldName& n) override { return !mended(n) && real().GetBoolean(n); }
    std::int16_t GetInt16(const FieldName& n) override { return mended(n) ? std::int16_t{0} : real().GetInt16(n); }
    std::int32_t GetInt32(const FieldName& n) override { return mended(n) ? 0 : real().GetInt32(n); }
    float GetSingle(const FieldName& n) override { return mended(n) ? 0 : real().GetSingle(n); }
    double GetDouble(const FieldName& n) override { return mended(n) ? 0 : real().GetDouble(n); }
    Currency GetCurrency(const FieldName& n) override { return mended(n) ? Currency() : real().GetCurrency(n); }
    Date GetDate(const FieldName& n) override { return mended(n) ? Date() : real().GetDate(n); }
    std::string_view GetText(const FieldName& n) override { return mended(n) ? std::string_view() : real().GetText(n); }
    // clang-format on

  private:
    bool mended(const FieldName& name) const { return !mended_.empty() && isMended(name.text()); }

    std::vector<std::string> mended_;
};

}  // namespace ledgerwick::audit
