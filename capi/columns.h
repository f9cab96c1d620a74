// Columns that a caller chooses by name, each with how it is read.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "capi/table.h"

namespace ledgerwick::c {

// A column of a table made of subjects, such as the employees.
template <class Subject>
struct ColumnOf {
    std::string_view name;
    Variant (*read)(const Subject&);
};

// The names in "naid,name"; all of `known` for NULL.
// Shape:  as `known` spells them, in the caller's order; each name is found in any case.
// Errors: 3265 for a name that is not known, 91 for no name at all.
std::vector<std::string> chosenNames(const char* wanted, std::span<const std::string> known);

// A table of chosen columns, filled subject by subject.
template <class Subject>
class ChosenColumns {
  public:
    ChosenColumns(std::span<const ColumnOf<Subject>> all, const char* wanted) {
        std::vector<std::string> known;
        for (const auto& each : all) known.emplace_back(each.name);
        names_ = chosenNames(wanted, known);
        for (const std::string& name : names_) {
            for (const auto& each : all) {
                if (each.name == name) reads_.push_back(each.read);
            }
        }
    }

    std::unique_ptr<Table> table() const { return std::make_unique<Table>(names_); }
    void addRow(Table& table, const Subject& subject) const {
        for (const auto read : reads_) table.addCell(read(subject));
    }

  private:
    std::vector<std::string> names_;
    std::vector<Variant (*)(const Subject&)> reads_;
};

}  // namespace ledgerwick::c
