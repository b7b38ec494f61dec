#include "stampa/flexprinter.h"

#include "piattaforma/griglia.h"

using namespace Qt::StringLiterals;

namespace {

// The text stays this far from the edges of its cell: 3 pixels of the screen.
constexpr qreal Rientro = 45;

int ultimaRiga(const Griglia &g, int rowsTo) {
    return std::min(rowsTo, g.righe() - 1);
}

} // namespace

FlexPrinter::FlexPrinter(const Griglia &griglia)
    : m_griglia(griglia) {}

qreal FlexPrinter::larghezza() const {
    qreal l = 0;
    for (int c = 0; c < m_griglia.colonne(); ++c)
        l += m_griglia.larghezzaColonna(c);
    return l;
}

qreal FlexPrinter::altezza() const {
    qreal a = 0;
    for (int r = std::max(0, RowsFrom); r <= ultimaRiga(m_griglia, RowsTo); ++r)
        a += m_griglia.altezzaRiga(r);
    return a;
}

Qt::Alignment FlexPrinter::allineamento(int allineamentoCella, const QString &testo) {
    if (allineamentoCella < 0 || allineamentoCella > 8)
        return Qt::AlignVCenter | (Griglia::eNumero(testo) ? Qt::AlignRight : Qt::AlignLeft);
    static constexpr Qt::AlignmentFlag orizzontali[] = {Qt::AlignLeft, Qt::AlignHCenter,
                                                        Qt::AlignRight};
    static constexpr Qt::AlignmentFlag verticali[] = {Qt::AlignTop, Qt::AlignVCenter,
                                                      Qt::AlignBottom};
    return orizzontali[allineamentoCella / 3] | verticali[allineamentoCella % 3];
}

void FlexPrinter::stampa(DispositivoDisegno &d) {
    const int prima = std::max(0, RowsFrom);
    const int ultima = ultimaRiga(m_griglia, RowsTo);
    qreal y = BordoSuperiore;
    for (int r = prima; r <= ultima; ++r) {
        const qreal h = m_griglia.altezzaRiga(r);
        qreal x = BordoSinistro;
        for (int c = 0; c < m_griglia.colonne(); ++c) {
            const qreal w = m_griglia.larghezzaColonna(c);
            if (w <= 0 || h <= 0) {
                x += w;
                continue;
            }
            const QRectF cella(x, y, w, h);
            QColor sfondo = m_griglia.sfondo(r, c);
            if (!sfondo.isValid() && m_griglia.eFissa(r, c))
                sfondo = QColor(224, 224, 224);
            if (sfondo.isValid() && sfondo != QColor(Qt::white))
                d.rettangolo(cella, QColor(), sfondo);
            const QString testo = m_griglia.testo(r, c);
            if (!testo.isEmpty()) {
                DispositivoDisegno::Carattere carattere = CarattereBase;
                if (const QString nome = m_griglia.nomeCarattere(r, c); !nome.isEmpty())
                    carattere.nome = nome;
                if (const qreal punti = m_griglia.dimensioneCarattere(r, c); punti > 0)
                    carattere.dimensione = punti;
                carattere.grassetto = m_griglia.grassetto(r, c);
                const QColor colore = m_griglia.colore(r, c);
                d.testoInRettangolo(cella.adjusted(Rientro, 0, -Rientro, 0), testo, carattere,
                                    colore.isValid() ? colore : QColor(Qt::black),
                                    allineamento(int(m_griglia.allineamento(r, c)), testo), false);
            }
            x += w;
        }
        y += h;
    }
    // The grid lines, over the cells.
    const qreal destra = BordoSinistro + larghezza();
    qreal yl = BordoSuperiore;
    d.linea({BordoSinistro, yl}, {destra, yl}, ColoreLinee);
    for (int r = prima; r <= ultima; ++r) {
        yl += m_griglia.altezzaRiga(r);
        d.linea({BordoSinistro, yl}, {destra, yl}, ColoreLinee);
    }
    qreal xl = BordoSinistro;
    d.linea({xl, BordoSuperiore}, {xl, yl}, ColoreLinee);
    for (int c = 0; c < m_griglia.colonne(); ++c) {
        xl += m_griglia.larghezzaColonna(c);
        d.linea({xl, BordoSuperiore}, {xl, yl}, ColoreLinee);
    }
    m_curX = destra;
    m_curY = yl;
}

void FlexPrinter::righelloOrizzontale(DispositivoDisegno &d) {
    const qreal larghezza = d.dimensionePagina().width();
    const DispositivoDisegno::Carattere piccolo{u"Arial"_s, 6, false};
    d.linea({0, 0}, {larghezza, 0}, Qt::black);
    for (int cm = 0; cm * DispositivoDisegno::TwipsPerCentimetro <= larghezza; ++cm) {
        const qreal x = cm * DispositivoDisegno::TwipsPerCentimetro;
        d.linea({x, 0}, {x, cm % 5 == 0 ? 200.0 : 100.0}, Qt::black);
        if (cm > 0)
            d.testo({x + 20, 100}, QString::number(cm), piccolo, Qt::black);
    }
}

void FlexPrinter::righelloVerticale(DispositivoDisegno &d) {
    const qreal altezza = d.dimensionePagina().height();
    const DispositivoDisegno::Carattere piccolo{u"Arial"_s, 6, false};
    d.linea({0, 0}, {0, altezza}, Qt::black);
    for (int cm = 0; cm * DispositivoDisegno::TwipsPerCentimetro <= altezza; ++cm) {
        const qreal y = cm * DispositivoDisegno::TwipsPerCentimetro;
        d.linea({0, y}, {cm % 5 == 0 ? 200.0 : 100.0, y}, Qt::black);
        if (cm > 0)
            d.testo({120, y + 20}, QString::number(cm), piccolo, Qt::black);
    }
}

QString FlexPrinter::codiceColonne() const {
    QString codice = u"'You can place this code in Form's load event\r\n"
                     "'MSFlex Grid Control does not require these code but MSHFlex does\r\n"_s;
    for (int c = 0; c < m_griglia.colonne(); ++c) {
        const int w = m_griglia.larghezzaColonna(c);
        if (w == 0)
            codice += u"'You must set positive value to follwing line\r\n"_s;
        codice += u".ColWidth(%1) = %2\r\n"_s.arg(c).arg(w);
    }
    return codice;
}
