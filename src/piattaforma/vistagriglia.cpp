#include "piattaforma/vistagriglia.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/griglia.h"
#include "piattaforma/ordinealternato.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QStyleOptionHeader>

using namespace Qt::StringLiterals;

namespace {

// Draws the current cell as a frame over its own colours, never as a filled highlight: the
// colours of a cell are often what the screen is showing.
class DelegatoCella : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        QStyleOptionViewItem opzione(option);
        opzione.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        QStyledItemDelegate::paint(painter, opzione, index);

        const auto *vista = qobject_cast<const QAbstractItemView *>(option.widget);
        if (!vista || vista->currentIndex() != index)
            return;
        painter->save();
        const QColor colore =
            option.palette.color(vista->hasFocus() ? QPalette::Highlight : QPalette::Dark);
        QPen penna(colore, 2);
        penna.setJoinStyle(Qt::MiterJoin);
        painter->setPen(penna);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(QRectF(option.rect).adjusted(1, 1, -1, -1));
        painter->restore();
    }
};

// The frozen header. The arrow of the order is drawn small, at the right of the caption, when the
// caption leaves room for it: the style's own arrow takes a wider strip off every caption, and the
// program's columns are narrow ("Freq." would lose its full stop). Without room, the style's.
class Intestazione : public QHeaderView {
public:
    explicit Intestazione(QWidget *genitore)
        : QHeaderView(Qt::Horizontal, genitore) {}

protected:
    void initStyleOptionForIndex(QStyleOptionHeader *opzione, int sezione) const override {
        QHeaderView::initStyleOptionForIndex(opzione, sezione);
        if (sezione == m_frecciaPropria)
            opzione->sortIndicator = QStyleOptionHeader::None;
    }

    void paintSection(QPainter *painter, const QRect &rect, int sezione) const override {
        const bool ordinata = isSortIndicatorShown() && sortIndicatorSection() == sezione;
        const QRect freccia = ordinata ? posto(rect, sezione) : QRect();
        m_frecciaPropria = freccia.isValid() ? sezione : -1;
        // The style leaves the painter clipped to nothing after a section.
        painter->save();
        QHeaderView::paintSection(painter, rect, sezione);
        painter->restore();
        m_frecciaPropria = -1;
        if (!freccia.isValid())
            return;
        QStyleOptionHeader opzione;
        initStyleOption(&opzione);
        opzione.rect = freccia;
        // The direction as QHeaderView gives it to the style.
        opzione.sortIndicator = sortIndicatorOrder() == Qt::AscendingOrder
                                    ? QStyleOptionHeader::SortDown
                                    : QStyleOptionHeader::SortUp;
        style()->drawPrimitive(QStyle::PE_IndicatorHeaderArrow, &opzione, painter, this);
    }

private:
    // The square of the small arrow, or nothing when the caption leaves no room at its right.
    QRect posto(const QRect &sezioneRect, int sezione) const {
        const QAbstractItemModel *m = model();
        if (!m)
            return {};
        QFont font = this->font();
        const QVariant proprio = m->headerData(sezione, orientation(), Qt::FontRole);
        if (proprio.canConvert<QFont>())
            font = qvariant_cast<QFont>(proprio).resolve(font);
        const QString testo = m->headerData(sezione, orientation(), Qt::DisplayRole).toString();
        const QVariant allineamento = m->headerData(sezione, orientation(), Qt::TextAlignmentRole);
        const Qt::Alignment verso =
            allineamento.isValid() ? Qt::Alignment(allineamento.toInt()) : defaultAlignment();
        const int margine = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
        const int lato = std::max(5, sezioneRect.height() / 3);
        const int libero =
            sezioneRect.width() - 2 * margine - QFontMetrics(font).horizontalAdvance(testo);
        const int aDestra = verso & Qt::AlignRight     ? 0
                            : verso & Qt::AlignHCenter ? libero / 2
                                                       : libero;
        if (aDestra < lato + 2)
            return {};
        return QRect(sezioneRect.right() - margine / 2 - lato + 1,
                     sezioneRect.center().y() - lato / 2, lato, lato);
    }

    mutable int m_frecciaPropria = -1;
};

} // namespace

VistaGriglia::VistaGriglia(QWidget *parent)
    : QTableView(parent) {
    setItemDelegate(new DelegatoCella(this));
    // One current cell and no selection: the frame is the only mark of where the user is.
    setSelectionMode(NoSelection);
    setSelectionBehavior(SelectItems);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideNone);
    setShowGrid(true);
    setCornerButtonEnabled(false);
    setStyleSheet(u"QTableView { gridline-color: rgb(192, 192, 192); }"_s);

    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(0);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);

    setHorizontalHeader(new Intestazione(this));
    QHeaderView *intestazione = horizontalHeader();
    intestazione->hide();
    intestazione->setMinimumSectionSize(0);
    // The user may widen a column by its edge (a double click fits it to its texts).
    intestazione->setSectionResizeMode(QHeaderView::Interactive);
    intestazione->setStretchLastSection(false);
    intestazione->setSectionsClickable(false);
    intestazione->setHighlightSections(false);
    intestazione->setSortIndicatorShown(false);
    intestazione->viewport()->installEventFilter(this);
    // A pressed section would make its column current and select it: what a click on the header
    // does is the screen's business alone.
    disconnect(intestazione, &QHeaderView::sectionPressed, this, nullptr);
    disconnect(intestazione, &QHeaderView::sectionEntered, this, nullptr);
    connect(intestazione, &QHeaderView::sectionClicked, this, [this](int colonna) {
        // The header turns its own arrow on a click; the arrow is the screen's to set.
        applicaOrdine();
        if (m_griglia && colonna >= 0 && colonna < m_griglia->colonne())
            emit clicIntestazione(colonna);
    });
    connect(intestazione, &QHeaderView::sectionResized, this,
            [this](int colonna, int, int larghezza) { colonnaRidimensionata(colonna, larghezza); });
}

VistaGriglia::~VistaGriglia() = default;

void VistaGriglia::setGriglia(Griglia *griglia) {
    for (const QMetaObject::Connection &connessione : std::as_const(m_connessioni))
        disconnect(connessione);
    m_connessioni.clear();
    m_premuto = QPersistentModelIndex();

    QItemSelectionModel *vecchia = selectionModel();
    m_griglia = griglia;
    setModel(griglia);
    if (vecchia != selectionModel())
        delete vecchia;
    if (!griglia)
        return;

    // Removing the current row leaves no current index in a view without selection: the cell
    // number is kept and put back where the new shape allows, as on the old grids.
    const auto salva = [this] { salvaCella(); };
    const auto ripristinaDopoRighe = [this](const QModelIndex &, int primo) {
        if (primo == 0)
            aggiornaIntestazione(); // the frozen row may be another one now
        ripristinaCella();
    };
    const auto ripristinaDopoColonne = [this] {
        m_larghezzeUtente.clear(); // the columns are others now
        aggiornaLarghezze();
        ripristinaCella();
    };
    m_connessioni = {
        connect(griglia, &Griglia::dimensioniCambiate, this,
                [this] {
                    aggiornaDimensioni();
                    ripristinaCella();
                }),
        connect(griglia, &Griglia::modelAboutToBeReset, this, salva),
        connect(griglia, &Griglia::modelReset, this, &VistaGriglia::dopoIlReset),
        connect(griglia, &Griglia::rowsAboutToBeRemoved, this, salva),
        connect(griglia, &Griglia::rowsRemoved, this, ripristinaDopoRighe),
        connect(griglia, &Griglia::rowsInserted, this, ripristinaDopoRighe),
        connect(griglia, &Griglia::columnsAboutToBeRemoved, this, salva),
        connect(griglia, &Griglia::columnsRemoved, this, ripristinaDopoColonne),
        connect(griglia, &Griglia::columnsInserted, this, ripristinaDopoColonne),
    };
    m_rigaSalvata = m_colonnaSalvata = -1;
    m_larghezzeUtente.clear();
    nascondiOrdine();
    dopoIlReset();
}

Griglia *VistaGriglia::griglia() const {
    return m_griglia;
}

// --- sizes

void VistaGriglia::aggiornaDimensioni() {
    aggiornaIntestazione();
    aggiornaLarghezze();
    aggiornaAltezze();
}

void VistaGriglia::aggiornaIntestazione() {
    if (!m_griglia)
        return;
    const bool congelata = m_griglia->righeFisse() == 1 && m_griglia->righe() > 0;
    if (m_griglia->righe() > 0)
        setRowHidden(0, congelata);
    if (congelata)
        horizontalHeader()->setFixedHeight(Griglia::twipsInPixel(m_griglia->altezzaRiga(0)));
    horizontalHeader()->setVisible(congelata);
}

void VistaGriglia::aggiornaLarghezze() {
    if (!m_griglia)
        return;
    const QScopedValueRollback impostando(m_impostaLarghezze, true);
    for (int c = 0; c < m_griglia->colonne(); ++c) {
        const int twips = m_griglia->larghezzaColonna(c);
        const auto utente = m_larghezzeUtente.constFind(c);
        if (utente != m_larghezzeUtente.cend() && utente->twipsGriglia == twips) {
            setColumnWidth(c, utente->pixel);
            continue;
        }
        // The screen gave the column a width of its own since: that one holds.
        m_larghezzeUtente.remove(c);
        setColumnWidth(c, Griglia::twipsInPixel(twips));
    }
}

void VistaGriglia::colonnaRidimensionata(int colonna, int larghezza) {
    if (m_impostaLarghezze || !m_griglia || colonna < 0 || colonna >= m_griglia->colonne())
        return;
    m_larghezzeUtente.insert(colonna, {m_griglia->larghezzaColonna(colonna), larghezza});
    if (m_adattamento == Adattamento::Intera)
        setFixedSize(dimensioneEsatta(m_righeAdattate));
    else if (m_adattamento == Adattamento::Larghezza)
        adattaLarghezza();
}

void VistaGriglia::aggiornaAltezze() {
    if (!m_griglia)
        return;
    // The default size sets every row at once; only rows of their own height are touched, so
    // 19684 rows cost one pass over the grid's numbers and no pass over the view.
    const int predefinita = m_griglia->altezzaRighe();
    verticalHeader()->setDefaultSectionSize(Griglia::twipsInPixel(predefinita));
    for (int r = 0; r < m_griglia->righe(); ++r) {
        const int altezza = m_griglia->altezzaRiga(r);
        if (altezza != predefinita)
            setRowHeight(r, Griglia::twipsInPixel(altezza));
    }
}

// --- header

void VistaGriglia::setIntestazioneCliccabile(bool si) {
    horizontalHeader()->setSectionsClickable(si);
}

bool VistaGriglia::intestazioneCliccabile() const {
    return horizontalHeader()->sectionsClickable();
}

void VistaGriglia::ordinaConDoppioClic(OrdineAlternato *ordine) {
    ordinaConClicIntestazione(ordine);
    connect(this, &VistaGriglia::doppioClic, this,
            [this, ordine](int, int colonna) { ordinaPer(ordine, colonna); });
}

void VistaGriglia::ordinaConClicIntestazione(OrdineAlternato *ordine) {
    setIntestazioneCliccabile(true);
    connect(this, &VistaGriglia::clicIntestazione, this,
            [this, ordine](int colonna) { ordinaPer(ordine, colonna); });
}

void VistaGriglia::ordinaPer(OrdineAlternato *ordine, int colonna) {
    if (!m_griglia || colonna < 0 || colonna >= m_griglia->colonne())
        return;
    ordine->ordina(*m_griglia, colonna);
    mostraOrdine(colonna, ordine->ordine()->verso);
}

void VistaGriglia::mostraOrdine(int colonna, Griglia::Verso verso) {
    if (!m_griglia || colonna < 0 || colonna >= m_griglia->colonne())
        throw ErroreEsecuzione(u"Indice di riga o di colonna non valido nella griglia."_s);
    m_colonnaOrdine = colonna;
    m_versoOrdine = verso;
    applicaOrdine();
}

void VistaGriglia::nascondiOrdine() {
    m_colonnaOrdine = -1;
    applicaOrdine();
}

int VistaGriglia::colonnaOrdine() const {
    return m_colonnaOrdine;
}

Griglia::Verso VistaGriglia::versoOrdine() const {
    return m_versoOrdine;
}

void VistaGriglia::applicaOrdine() {
    QHeaderView *intestazione = horizontalHeader();
    const QSignalBlocker silenzio(intestazione);
    intestazione->setSortIndicator(m_colonnaOrdine, m_versoOrdine == Griglia::Verso::Crescente
                                                        ? Qt::AscendingOrder
                                                        : Qt::DescendingOrder);
    intestazione->setSortIndicatorShown(m_colonnaOrdine >= 0);
}

// --- current cell

int VistaGriglia::rigaCorrente() const {
    const QModelIndex indice = currentIndex();
    return indice.isValid() ? indice.row() : -1;
}

int VistaGriglia::colonnaCorrente() const {
    const QModelIndex indice = currentIndex();
    return indice.isValid() ? indice.column() : -1;
}

void VistaGriglia::setCellaCorrente(int r, int c) {
    if (!m_griglia || r < 0 || r >= m_griglia->righe() || c < 0 || c >= m_griglia->colonne())
        throw ErroreEsecuzione(u"Indice di riga o di colonna non valido nella griglia."_s);
    selectionModel()->setCurrentIndex(m_griglia->index(r, c), QItemSelectionModel::NoUpdate);
}

void VistaGriglia::salvaCella() {
    m_rigaSalvata = rigaCorrente();
    m_colonnaSalvata = colonnaCorrente();
    m_premuto = QPersistentModelIndex();
}

void VistaGriglia::dopoIlReset() {
    // A filter rewrites the grid in a block: the current cell stays where it was.
    aggiornaDimensioni();
    ripristinaCella();
}

void VistaGriglia::ripristinaCella() {
    if (!m_griglia)
        return;
    const QModelIndex corrente = currentIndex();
    int r = corrente.isValid() ? corrente.row() : m_rigaSalvata;
    int c = corrente.isValid() ? corrente.column() : m_colonnaSalvata;
    m_rigaSalvata = m_colonnaSalvata = -1;
    if (cellaDelCorpo(corrente))
        return;
    // Like the old grids: the cell number stays as far as the shape allows, and the first body
    // cell is current as soon as there is one.
    const Griglia &g = *m_griglia;
    if (r < 0 || c < 0) {
        r = g.righeFisse();
        c = g.colonneFisse();
    }
    r = std::max(std::min(r, g.righe() - 1), g.righeFisse());
    c = std::max(std::min(c, g.colonne() - 1), g.colonneFisse());
    if (r < g.righe() && c < g.colonne())
        selectionModel()->setCurrentIndex(g.index(r, c), QItemSelectionModel::NoUpdate);
    else if (corrente.isValid())
        selectionModel()->clearCurrentIndex();
}

bool VistaGriglia::cellaDelCorpo(const QModelIndex &indice) const {
    return m_griglia && indice.isValid() && !m_griglia->eFissa(indice.row(), indice.column());
}

QModelIndex VistaGriglia::moveCursor(CursorAction azione, Qt::KeyboardModifiers modificatori) {
    // Keys move within the body only, as they did on the old grids.
    const QModelIndex indice = QTableView::moveCursor(azione, modificatori);
    if (!m_griglia || !indice.isValid())
        return indice;
    const int r = std::max(indice.row(), m_griglia->righeFisse());
    const int c = std::max(indice.column(), m_griglia->colonneFisse());
    if (r >= m_griglia->righe() || c >= m_griglia->colonne())
        return currentIndex();
    return m_griglia->index(r, c);
}

// --- mouse

void VistaGriglia::mousePressEvent(QMouseEvent *event) {
    m_premuto = QPersistentModelIndex();
    if (event->button() == Qt::LeftButton) {
        const QModelIndex indice = indexAt(event->position().toPoint());
        if (!cellaDelCorpo(indice)) {
            event->accept(); // fixed cells never become current
            return;
        }
        QTableView::mousePressEvent(event);
        m_premuto = indice;
        return;
    }
    if (event->button() == Qt::RightButton) {
        // The right button leaves the current cell alone; the screens act on its release.
        event->accept();
        return;
    }
    QTableView::mousePressEvent(event);
}

void VistaGriglia::mouseReleaseEvent(QMouseEvent *event) {
    const QModelIndex indice = indexAt(event->position().toPoint());
    if (event->button() == Qt::RightButton) {
        event->accept();
        emit tastoDestro(indice.isValid() ? indice.row() : -1,
                         indice.isValid() ? indice.column() : -1);
        return;
    }
    QTableView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) {
        const QPersistentModelIndex premuto = std::exchange(m_premuto, QPersistentModelIndex());
        if (premuto.isValid() && premuto == indice)
            emit clic(indice.row(), indice.column());
    }
}

void VistaGriglia::mouseDoubleClickEvent(QMouseEvent *event) {
    event->accept();
    m_premuto = QPersistentModelIndex(); // the release that follows is no click of its own
    if (event->button() != Qt::LeftButton)
        return;
    const QModelIndex indice = indexAt(event->position().toPoint());
    if (!cellaDelCorpo(indice))
        return;
    selectionModel()->setCurrentIndex(indice, QItemSelectionModel::NoUpdate);
    emit doppioClic(indice.row(), indice.column());
}

void VistaGriglia::mouseMoveEvent(QMouseEvent *event) {
    // Dragging may move the current cell, but not out of the body nor from a fixed cell.
    if (event->buttons() & Qt::LeftButton) {
        if (!m_premuto.isValid() || !cellaDelCorpo(indexAt(event->position().toPoint()))) {
            event->accept();
            return;
        }
    }
    QTableView::mouseMoveEvent(event);
}

bool VistaGriglia::eventFilter(QObject *oggetto, QEvent *evento) {
    // The frozen row is the header widget: it ignores clicks but tells about the right button.
    if (oggetto == horizontalHeader()->viewport() && evento->type() == QEvent::MouseButtonRelease) {
        auto *mouse = static_cast<QMouseEvent *>(evento);
        if (mouse->button() == Qt::RightButton) {
            const int c = horizontalHeader()->logicalIndexAt(mouse->position().toPoint());
            emit tastoDestro(c >= 0 ? 0 : -1, c);
            return true;
        }
    }
    return QTableView::eventFilter(oggetto, evento);
}

int VistaGriglia::larghezzaColonne() const {
    int larghezza = 0;
    if (m_griglia)
        for (int c = 0; c < m_griglia->colonne(); ++c)
            larghezza += columnWidth(c);
    return larghezza;
}

QSize VistaGriglia::dimensioneEsatta(int righe) const {
    const int bordo = 2 * frameWidth();
    int altezza = bordo;
    if (m_griglia) {
        int r = 0;
        // One fixed row stands as the header, at its own height.
        if (m_griglia->righeFisse() == 1 && m_griglia->righe() > 0)
            altezza += Griglia::twipsInPixel(m_griglia->altezzaRiga(r++));
        for (int n = 0; r < m_griglia->righe() && (righe < 0 || n < righe); ++r, ++n)
            altezza += Griglia::twipsInPixel(m_griglia->altezzaRiga(r));
    }
    return {larghezzaColonne() + bordo, altezza};
}

void VistaGriglia::adattaA(int righe) {
    m_adattamento = Adattamento::Intera;
    m_righeAdattate = righe;
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFixedSize(dimensioneEsatta(righe));
}

void VistaGriglia::adattaLarghezza() {
    m_adattamento = Adattamento::Larghezza;
    setFixedWidth(larghezzaColonne() + 2 * frameWidth() +
                  style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2);
}
