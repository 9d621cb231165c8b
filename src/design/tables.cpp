#include "design/tables.h"

#include "design/failure.h"
#include "design/number_words.h"

#include <algorithm>

namespace havuz::design {

using consistent::Analysis;
using consistent::CaseResult;

namespace {

const char *Verdict(bool met) { return met ? "ok" : "not met"; }

std::string NodesTable(const consistent::Tank &tank, const std::vector<const CaseResult *> &shown, TableStyle style) {
    CsvText csv("node,x,y,z,case,ux,uy,uz,rx,ry,rz,soil,reaction", style);
    for (const CaseResult *r : shown)
        for (std::size_t n = 1; n < tank.nodes.size(); ++n) {
            if (!tank.nodes[n].used)
                continue;
            const Vector3 &at = tank.nodes[n].at;
            csv.put(static_cast<int>(n)).put(at.x).put(at.y).put(at.z).put(r->key);
            for (const double u : r->nodes[n].u)
                csv.put(u);
            csv.put(r->nodes[n].soil).put(r->nodes[n].reaction).endRow();
        }
    return csv.text();
}

std::string CornersTable(const consistent::Tank &tank, const std::vector<const CaseResult *> &shown, TableStyle style) {
    CsvText csv("mesh,corner,node,panel,kind,case,N11,N22,N12,M11,M22,M12,Q1,Q2", style);
    for (const CaseResult *r : shown)
        for (std::size_t i = 0; i < tank.meshes.size(); ++i)
            for (int corner = 0; corner <= 4; ++corner) {
                const consistent::TankMesh &m = tank.meshes[i];
                const consistent::ShellResult &s = r->meshes[i][static_cast<std::size_t>(corner)];
                csv.put(m.mesh).put(corner).put(corner == 0 ? 0 : m.node[static_cast<std::size_t>(corner - 1)]);
                csv.put(m.panel).put(tank.panelOf(m).kind).put(r->key);
                for (const double v : {s.N11, s.N22, s.N12, s.M11, s.M22, s.M12, s.Q1, s.Q2})
                    csv.put(v);
                csv.endRow();
            }
    return csv.text();
}

std::string WallsTable(const std::vector<const CaseResult *> &shown, TableStyle style) {
    CsvText csv("panel,case,length,height,F,M", style);
    for (const CaseResult *r : shown)
        for (const consistent::WallForce &w : r->walls)
            csv.put(w.panel).put(r->key).put(w.length).put(w.height).put(w.force).put(w.moment).endRow();
    return csv.text();
}

void PutProof(CsvText &csv, const CaseResult &r) {
    for (std::size_t k = 0; k < consistent::kComponents.size(); ++k)
        csv.put(r.key)
            .put(consistent::kComponents[k])
            .put(r.proof.load[k])
            .put(r.proof.spring[k])
            .put(r.proof.reaction[k])
            .put(r.proof.sum[k])
            .put(r.proof.residual)
            .endRow();
}

std::string ProofTable(const Design &design, TableStyle style) {
    CsvText csv("case,component,load,spring,reaction,sum,residual", style);
    for (const CaseResult *r : ShownResults(design, ""))
        PutProof(csv, *r);
    for (const CaseResult &r : design.combinations)
        PutProof(csv, r);
    return csv.text();
}

std::string CombinationsTable(const Design &design, TableStyle style) {
    CsvText csv("combination,case,factor", style);
    for (const DesignCombination &c : design.basis.combinations)
        for (const consistent::Case kase : consistent::kAllCases)
            if (const double factor = c.sum.factor[kase]; factor != 0.0)
                csv.put(c.sum.key).put(std::string(consistent::NameOf(kase).key)).put(factor).endRow();
    return csv.text();
}

std::string SteelTable(const Design &design, TableStyle style) {
    CsvText csv("panel,kind,zone,face,direction,combination,mesh,corner,h,d,M,N,As,AsMin,diameter,spacing,AsProv,wk,"
                "wkLimit,V,VRd,verdict",
                style);
    for (const SteelRow &row : design.steel) {
        const LayerChoice &l = row.layer;
        csv.put(row.panel).put(row.kind).put(NameOf(row.zone)).put(FaceName(row)).put(row.direction);
        csv.put(design.basis.combinations[static_cast<std::size_t>(l.governs.combination)].sum.key);
        csv.put(l.governs.mesh).put(l.governs.corner).put(l.section.h).put(l.section.d);
        csv.put(l.governs.M).put(l.governs.N).put(l.need.area).put(l.least);
        csv.put(l.bars.diameter).put(l.bars.spacing).put(l.bars.area());
        csv.put(l.crack.wk)
            .put(row.crackLimit)
            .put(row.shear.V)
            .put(row.shear.allowed)
            .put(Verdict(row.met()))
            .endRow();
    }
    return csv.text();
}

std::string ChecksTable(const Design &design, TableStyle style) {
    CsvText csv("check,combination,panel,value,limit,unit,verdict", style);
    for (const Check &c : design.checks)
        csv.put(c.kind)
            .put(c.combination)
            .put(c.panel)
            .put(c.value)
            .put(c.limit)
            .put(c.unit)
            .put(Verdict(c.met))
            .endRow();
    return csv.text();
}

} // namespace

std::vector<const CaseResult *> ShownResults(const Design &design, const std::string &combination) {
    std::vector<const CaseResult *> shown;
    for (const consistent::Case c : consistent::kAllCases)
        if (c != consistent::kSurcharge || design.basis.settings.surcharge > 0.0)
            shown.push_back(&design.cases[c]);
    if (combination.empty())
        return shown;
    const auto found = std::find_if(design.combinations.begin(), design.combinations.end(),
                                    [&](const CaseResult &r) { return r.key == combination; });
    if (found == design.combinations.end())
        throw DesignFailure("combination " + combination + ": there is none of that name",
                            combination + ": bu adda kombinasyon yok");
    shown.push_back(&*found);
    return shown;
}

CsvText::CsvText(const std::string &head, TableStyle style) : style_(style), text_(head) {
    if (style == TableStyle::Turkish)
        std::replace(text_.begin(), text_.end(), ',', ';');
    text_ += "\n";
}

CsvText &CsvText::put(const std::string &word) {
    if (rowBegun_)
        text_ += style_ == TableStyle::Turkish ? ';' : ',';
    rowBegun_ = true;
    text_ += word;
    return *this;
}

CsvText &CsvText::put(double value) {
    std::string number = TwelveDigits(value);
    if (style_ == TableStyle::Turkish)
        std::replace(number.begin(), number.end(), '.', ',');
    return put(number);
}

void CsvText::endRow() {
    text_ += "\n";
    rowBegun_ = false;
}

std::vector<NamedTable> ResultTables(const Analysis &analysis, const Design &design, TableStyle style,
                                     const std::string &combination) {
    const std::vector<const CaseResult *> shown = ShownResults(design, combination);
    std::vector<NamedTable> tables = {
        {"nodes.csv", NodesTable(analysis.tank(), shown, style)},
        {"corners.csv", CornersTable(analysis.tank(), shown, style)},
        {"walls.csv", WallsTable(shown, style)},
        {"proof.csv", ProofTable(design, style)},
    };
    for (NamedTable &table : DesignTables(design, style))
        tables.push_back(std::move(table));
    return tables;
}

std::vector<NamedTable> DesignTables(const Design &design, TableStyle style) {
    return {{"combinations.csv", CombinationsTable(design, style)},
            {"steel.csv", SteelTable(design, style)},
            {"checks.csv", ChecksTable(design, style)}};
}

} // namespace havuz::design
