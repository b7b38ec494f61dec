#include "core/colonna.h"

using namespace Qt::StringLiterals;

const QStringList &Colonna::segni() {
    static const QStringList tabella{u"1"_s, u"X"_s, u"2"_s};
    return tabella;
}

const QStringList &Colonna::giorniSettimana() {
    static const QStringList tabella{u"Lunedì"_s,  u"Martedì"_s, u"Mercoledì"_s, u"Giovedì"_s,
                                     u"Venerdì"_s, u"Sabato"_s,  u"Domenica"_s};
    return tabella;
}

const QStringList &Colonna::formule() {
    static const QStringList tabella = [] {
        QStringList f{u"9-0-0"_s, u"0-9-0"_s, u"0-0-9"_s};
        // The formulas with a first term of 0 other than the two above are left out on purpose.
        for (int uno = 1; uno <= 8; ++uno)
            for (int x = 0; x <= 9 - uno; ++x)
                f.append(u"%1-%2-%3"_s.arg(uno).arg(x).arg(9 - uno - x));
        return f;
    }();
    return tabella;
}

namespace {

void contaSegni(QStringView testo, qsizetype fine, int &uno, int &x, int &due) {
    uno = x = due = 0;
    for (qsizetype i = 0; i < fine && i < testo.size(); ++i) {
        const QChar c = testo.at(i);
        if (c == u'1')
            ++uno;
        else if (c == u'X')
            ++x;
        else if (c == u'2')
            ++due;
    }
}

// A position beyond the end of a short text reads as no character, which equals nothing.
QChar segnoA(const QString &testo, int posizione) {
    return posizione >= 1 && posizione <= testo.size() ? testo.at(posizione - 1) : QChar();
}

bool uguali(const QString &testo, int a, int b) {
    const QChar ca = segnoA(testo, a);
    const QChar cb = segnoA(testo, b);
    return !ca.isNull() && !cb.isNull() && ca == cb;
}

} // namespace

MetricheColonna Colonna::metriche(const QString &colonna) {
    const QString testo = colonna.toUpper();
    MetricheColonna m;
    contaSegni(testo, Lunghezza, m.uno, m.x, m.due);
    for (int i = 1; i <= 13; ++i)
        if (!uguali(testo, i, i + 1))
            ++m.interruzioni;
    for (int i = 1; i <= 7; ++i) {
        if (uguali(testo, i, 15 - i))
            ++m.simmetrie;
        if (uguali(testo, i, i + 7))
            ++m.parallele;
    }
    return m;
}

QString Colonna::formulaNove(const QString &colonna) {
    int uno, x, due;
    contaSegni(colonna.toUpper(), LunghezzaNove, uno, x, due);
    return u"%1-%2-%3"_s.arg(uno).arg(x).arg(due);
}

std::array<int, 3> Colonna::segniNove(QStringView colonna) {
    std::array<int, 3> conti{};
    contaSegni(colonna, LunghezzaNove, conti[0], conti[1], conti[2]);
    return conti;
}

QString Colonna::lineaColonna(const QString &colonna) {
    QString linea;
    linea.reserve(colonna.size() * 4);
    for (const QChar c : colonna) {
        linea += c;
        linea += u"   "_s;
    }
    linea.chop(3);
    return linea;
}

QString Colonna::lineaConcorso(const QString &stagione, const QString &concorso) {
    return u"Anno "_s + stagione + u"  n."_s + concorso;
}

QString Colonna::lineaNove(const QString &colonna) {
    return u"Formula del 9: "_s + formulaNove(colonna);
}

QString Colonna::lineaQuattordici(const QStringList &campi) {
    const auto campo = [&campi](int i) { return campi.value(i); };
    return u"Formula del 14: "_s + campo(3) + u"-"_s + campo(4) + u"-"_s + campo(5) +
           u"     Int."_s + campo(6) + u"  Simm."_s + campo(7) + u"  Paral."_s + campo(8);
}

QString Colonna::colonnaRaggruppata(const QString &colonna) {
    return colonna.left(3) + u"-"_s + colonna.mid(3, 3) + u"-"_s + colonna.mid(6, 3) + u"-"_s +
           colonna.mid(9, 5);
}

QString Colonna::rigaArchivio(const QString &stagione, const QString &concorso,
                              const QString &colonna) {
    const QString maiuscola = colonna.toUpper();
    QString riga = stagione + u" "_s + concorso + u" "_s + maiuscola;
    for (const int v : metriche(maiuscola).comeVettore())
        riga += u" "_s + QString::number(v);
    return riga;
}
