#include "hostkit/history/figures.h"

#include <array>
#include <string>
#include <utility>

#include "ledgerwick/employee/load_queries.h"
#include "ledgerwick/records/schema.h"

namespace ledgerwick::history {

namespace {

struct FigureOf {
    std::string_view name;
    Variant (*read)(const cEmployment& employment);
};

// The date and the key of the last reported payment.
constexpr std::int32_t reportedDate = 7;
constexpr std::int32_t reportedRow = 13;

Variant reported(const cEmployment& employment, std::int32_t element) {
    const Variant details = employment.LastRTI();
    return details.isArray() ? details.array().at(element) : Variant();
}

constexpr std::array figureTable{
    // clang-format off
    FigureOf{"last_pay",             [](const cEmployment& e) { return Variant(e.LastPayDate()); }},
    FigureOf{"paid_to",              [](const cEmployment& e) { return Variant(e.LastEPEDate()); }},
    FigureOf{"last_frequency",       [](const cEmployment& e) { return Variant(e.LastPayFreq()); }},
    FigureOf{"last_week",            [](const cEmployment& e) { return Variant(e.LastWeekNo()); }},
    FigureOf{"last_month",           [](const cEmployment& e) { return Variant(e.LastMonthNo()); }},
    FigureOf{"last_expected_pay",    [](const cEmployment& e) { return Variant(e.LExpPayDate()); }},
    FigureOf{"next_pay",             [](const cEmployment& e) { return Variant(e.NExpPayDate()); }},
    FigureOf{"next_period_end",      [](const cEmployment& e) { return Variant(e.NExpEPEDate()); }},
    FigureOf{"first_row",            [](const cEmployment& e) { return Variant(e.FirstPRPID()); }},
    FigureOf{"first_period_end",     [](const cEmployment& e) { return Variant(e.FirstEPEDate()); }},
    FigureOf{"ae_status",            [](const cEmployment& e) { return Variant(e.AEStatusCur()); }},
    FigureOf{"maternity_weeks",      [](const cEmployment& e) { return Variant(e.SMPConsecutiveWeeks()); }},
    FigureOf{"adoption_weeks",       [](const cEmployment& e) { return Variant(e.SAPConsecutiveWeeks()); }},
    FigureOf{"paternity_weeks",      [](const cEmployment& e) { return Variant(e.SPPConsecutiveWeeks()); }},
    FigureOf{"shared_parental_days", [](const cEmployment& e) { return Variant(e.ShPPConsecutiveDays()); }},
    FigureOf{"student_loan",         [](const cEmployment& e) { return Variant(e.SLCurStatus()); }},
    FigureOf{"student_loan_known",   [](const cEmployment& e) { return Variant(e.SLLastKnownPlan()); }},
    FigureOf{"postgraduate_loan",    [](const cEmployment& e) { return Variant(e.PGLCurStatus()); }},
    FigureOf{"postgraduate_ever",    [](const cEmployment& e) { return Variant(e.PGLWasDeducted()); }},
    // The last one, which `figuresOf` looks at again.
    FigureOf{"last_reported_pay",    [](const cEmployment& e) { return reported(e, reportedDate); }},
    // clang-format on
};
using Values = std::array<Variant, figureTable.size()>;

Values valuesOf(const cEmployment& employment) {
    Values values;
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = figureTable[i].read(employment);
    return values;
}

// An employment that has seen no pay row, of the same kind as `like`.
std::unique_ptr<cEmployment> blankLike(const cEmployment& like) {
    auto blank = std::make_unique<cEmployment>();
    blank->Active(like.Active());
    blank->EmpType(like.EmpType());
    return blank;
}

// Folds the rows of one employment and keeps, for each figure, the row that it comes from.
class Trace {
  public:
    explicit Trace(const cEmployment& loaded)
        : loaded_(loaded), folded_(blankLike(loaded)), values_(valuesOf(*folded_)) {}

    // A figure comes from a row when it moves it, or when it gives the same value to an employment
    // that has seen nothing before.
    void take(Recordset& row) {
        const auto alone = blankLike(loaded_);
        const Values blank = valuesOf(*alone);
        alone->AddPayment(row);
        folded_->AddPayment(row);
        const Values byItself = valuesOf(*alone);
        Values now = valuesOf(*folded_);
        const SourceRow source{row.GetInt32(field::PRPID), dateIn(row), weekIn(row)};
        for (std::size_t i = 0; i < now.size(); ++i) {
            const bool given = !(byItself[i] == blank[i]) && byItself[i] == now[i];
            if (given || !(now[i] == values_[i])) sources_[i] = source;
        }
        values_ = std::move(now);
    }

    std::vector<Figure> figures() const {
        std::vector<Figure> figures;
        for (std::size_t i = 0; i < figureTable.size(); ++i) {
            figures.push_back({figureTable[i].name, figureTable[i].read(loaded_), sources_[i]});
        }
        return figures;
    }

  private:
    static Date dateIn(Recordset& row) {
        return row.IsNull(field::PRPPayDate) ? Date() : row.GetDate(field::PRPPayDate);
    }
    static std::int16_t weekIn(Recordset& row) {
        return row.IsNull(field::PRPWeekNo) ? std::int16_t{0} : row.GetInt16(field::PRPWeekNo);
    }

    const cEmployment& loaded_;
    std::unique_ptr<cEmployment> folded_;
    Values values_;
    std::array<SourceRow, figureTable.size()> sources_;
};

}  // namespace

std::vector<EmploymentFigures> figuresOf(cEmployee& employee) {
    std::vector<std::pair<std::int32_t, Trace>> traces;
    for (const auto& employment : employee.Employments()) {
        traces.emplace_back(employment->PRTID(), Trace(*employment));
    }
    const FieldList fields = cEmployment::paymentFields();
    std::vector<FieldName> reads(fields.begin(), fields.end());
    reads.push_back(field::PRPPayDate);
    const auto rows = OpenPaymentsRS(employee.NAID(), 0, -1, reads);
    for (; !rows->Eof(); rows->MoveNext()) {
        for (auto& [prtid, trace] : traces) {
            if (prtid == rows->GetInt32(field::PRTID)) trace.take(*rows);
        }
    }
    rows->Close();
    std::vector<EmploymentFigures> all;
    for (const auto& employment : employee.Employments()) {
        all.push_back({employment, traces[all.size()].second.figures()});
        // The payment that a new row of an employment shows may be that of the row it continues.
        SourceRow& last = all.back().figures.back().source;
        const Variant key = reported(*employment, reportedRow);
        if (last.prpid == 0 && !key.isEmpty()) last.prpid = key.toInt32();
    }
    return all;
}

}  // namespace ledgerwick::history
