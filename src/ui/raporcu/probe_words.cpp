#include "ui/raporcu/probe_words.h"

#include "ui/qt/text.h"
#include "ui/raporcu/caught.h"

#include <algorithm>

namespace havuz {

namespace {

struct Row {
    QString name;
    double value;
};

QString Number(double value, int decimals) { return ToQt(DecimalCommaText(value, decimals)); }

void AddRows(const TankAnswer &answer, const std::vector<consistent::CaseResult> &results, const Quantity &q, int mesh,
             int corner, std::vector<Row> &rows) {
    std::vector<const consistent::CaseResult *> list;
    for (const consistent::CaseResult &r : results)
        list.push_back(&r);
    const auto values = ValuesAt(*answer.analysis, list, q, mesh, corner);
    for (std::size_t i = 0; i < list.size(); ++i)
        if (values[i])
            rows.push_back({ToQt(list[i]->key), *values[i]});
}

// Cases on the left, combinations on the right.
QString Table(const std::vector<Row> &left, const std::vector<Row> &right, const Quantity &q) {
    QString text = QStringLiteral("<table style=\"font-size:small\">");
    const auto cell = [&](const std::vector<Row> &rows, std::size_t i) {
        if (i >= rows.size())
            return QStringLiteral("<td></td><td></td>");
        return QStringLiteral("<td>%1&nbsp;</td><td align=right>%2&nbsp;&nbsp;&nbsp;</td>")
            .arg(rows[i].name.toHtmlEscaped(), Number(rows[i].value, q.decimals));
    };
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i)
        text += QStringLiteral("<tr>") + cell(left, i) + cell(right, i) + QStringLiteral("</tr>");
    return text + QStringLiteral("</table>");
}

QString AllValues(const TankAnswer &answer, const Quantity &q, int mesh, int corner, bool files) {
    std::vector<Row> left, right;
    if (files) {
        const int columns = static_cast<int>(answer.columns.size());
        const std::vector<double> values = FileValuesAt(answer.stem, columns, q, answer.tank, mesh, corner);
        for (std::size_t c = 0; c < values.size(); ++c)
            left.push_back({ToQt(answer.columns[c]), values[c]});
    } else {
        AddRows(answer, answer.design.cases, q, mesh, corner, left);
        AddRows(answer, answer.design.combinations, q, mesh, corner, right);
    }
    return Table(left, right, q);
}

} // namespace

QString ProbeWords(const TankAnswer &answer, const ResultScene &scene, const ProbePlace &place,
                   const Quantity *quantity, bool files) {
    const ResultFace &face = scene.faces[place.hit.face];
    const auto &meshes = answer.tank.meshes;
    const auto mesh = std::find_if(meshes.begin(), meshes.end(), [&](const auto &m) { return m.mesh == face.mesh; });
    if (mesh == meshes.end())
        return {};
    const auto at = static_cast<std::size_t>(place.corner > 0 ? place.corner - 1 : 0);
    const SpacePoint where = place.corner > 0 ? face.at[at] : place.hit.at;
    QString text;
    if (place.corner > 0)
        text += QStringLiteral("<b>nokta %1</b>, ").arg(mesh->node[at]);
    text += QStringLiteral("<b>mesh %1</b>, %2<br>")
                .arg(face.mesh)
                .arg(ToQt(PanelWords(answer.tank.panels.at(face.panel))));
    text +=
        scene.look == SceneLook::Flat
            ? QStringLiteral("yer (%1; %2) m<br>").arg(Number(where.x, 2), Number(where.y, 2))
            : QStringLiteral("yer (%1; %2; %3) m<br>").arg(Number(where.x, 2), Number(where.y, 2), Number(where.z, 2));
    for (const MeshFault &fault : answer.meshFaults)
        if (std::binary_search(fault.meshes.begin(), fault.meshes.end(), face.mesh))
            text += QStringLiteral("<span style=\"color:#a000a0\">mesh raporu: %1</span><br>").arg(ToQt(fault.turkish));
    if (face.hasValue)
        text += QStringLiteral("<b>%1 %2</b><br>")
                    .arg(Number(place.corner > 0 ? face.value[at] : place.hit.value, scene.decimals), ToQt(scene.unit));
    if (quantity == nullptr)
        return text;
    text += place.corner > 0 ? QStringLiteral("bu noktada (%1):").arg(ToQt(quantity->unit))
                             : QStringLiteral("meshin ortasında (%1):").arg(ToQt(quantity->unit));
    try {
        return text + AllValues(answer, *quantity, face.mesh, place.corner, files);
    } catch (const std::exception &) {
        return text + ToQt(CaughtInTurkish()).toHtmlEscaped();
    }
}

} // namespace havuz
