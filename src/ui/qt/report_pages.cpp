#include "ui/qt/report_pages.h"

#include "ui/qt/svg_object.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>
#include <algorithm>

namespace havuz {

namespace {

bool HoldsPicture(const QTextBlock &block) {
    return !block.begin().atEnd() && block.begin().fragment().charFormat().objectType() == SvgObject::kType;
}

class Strip {
public:
    explicit Strip(const QTextDocument &document) : layout_(*document.documentLayout()) {
        for (auto at = document.rootFrame()->begin(); !at.atEnd(); ++at)
            if (const auto *table = qobject_cast<const QTextTable *>(at.currentFrame()))
                takeTable(*table);
            else if (at.currentBlock().isValid())
                takeBlock(at.currentBlock());
        closeGaps();
    }
    const std::vector<StripPiece> &pieces() const { return pieces_; }

private:
    void takeBlock(const QTextBlock &block) {
        const QRectF box = layout_.blockBoundingRect(block);
        const bool keeps = block.blockFormat().headingLevel() > 0 || HoldsPicture(block);
        if (block.length() > 1) // not the empty one behind a table
            pieces_.push_back({box.top(), box.bottom(), keeps});
    }
    void takeTable(const QTextTable &table) {
        const bool behindTable = !tables_.empty() && tables_.back().second == pieces_.size();
        if (!pieces_.empty() && !behindTable)
            pieces_.back().keepWithNext = true; // what introduces a table
        tables_.emplace_back(pieces_.size(), pieces_.size() + static_cast<std::size_t>(table.rows()));
        for (int row = 0; row < table.rows(); ++row)
            pieces_.push_back(rowOf(table, row));
    }
    StripPiece rowOf(const QTextTable &table, int row) const {
        StripPiece piece{1e30, -1e30, row == 0};
        for (int column = 0; column < table.columns(); ++column)
            for (auto at = table.cellAt(row, column).begin(); !at.atEnd(); ++at) {
                const QRectF box = layout_.blockBoundingRect(at.currentBlock());
                piece.top = std::min(piece.top, box.top());
                piece.bottom = std::max(piece.bottom, box.bottom());
            }
        return piece;
    }
    // Pieces meet in the middle of the gap between them: there is the line between two rows. The first row follows the
    // head by itself, the others carry it.
    void closeGaps() {
        for (std::size_t i = 0; i + 1 < pieces_.size(); ++i)
            pieces_[i].bottom = pieces_[i + 1].top = .5 * (pieces_[i].bottom + pieces_[i + 1].top);
        for (const auto &[head, end] : tables_)
            for (std::size_t i = head + 2; i < end; ++i)
                pieces_[i].headTop = pieces_[head].top, pieces_[i].headBottom = pieces_[head].bottom;
    }

    const QAbstractTextDocumentLayout &layout_;
    std::vector<StripPiece> pieces_;
    std::vector<std::pair<std::size_t, std::size_t>> tables_; // places of head and end
};

} // namespace

std::vector<StripPiece> PiecesOf(const QTextDocument &document) { return Strip(document).pieces(); }

} // namespace havuz
