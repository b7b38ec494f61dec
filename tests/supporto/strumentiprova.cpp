#include "supporto/strumentiprova.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/vistagriglia.h"

#include <QApplication>
#include <QCheckBox>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRadioButton>
#include <QTest>

namespace StrumentiProva {

QByteArray contenuto(const QString &percorso) {
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly))
        return "<illeggibile>";
    return f.readAll();
}

bool scriviGrezzo(const QString &percorso, const QByteArray &byte) {
    QFile f(percorso);
    return f.open(QIODevice::WriteOnly) && f.write(byte) == byte.size();
}

QMap<QString, QByteArray> impronte(const QString &cartella) {
    QMap<QString, QByteArray> v;
    const QDir d(cartella);
    const QStringList nomi = d.entryList(QDir::Files | QDir::Hidden);
    for (const QString &n : nomi)
        if (n != QStringLiteral("impostazioni.ini"))
            v.insert(n,
                     QCryptographicHash::hash(contenuto(d.filePath(n)), QCryptographicHash::Sha256)
                         .toHex());
    return v;
}

QStringList cambiati(const QMap<QString, QByteArray> &prima,
                     const QMap<QString, QByteArray> &dopo) {
    QStringList nomi = prima.keys() + dopo.keys();
    nomi.removeDuplicates();
    nomi.sort();
    QStringList v;
    for (const QString &n : std::as_const(nomi))
        if (prima.value(n) != dopo.value(n))
            v.append(n);
    return v;
}

QString errore(const std::function<void()> &azione) {
    try {
        azione();
    } catch (const ErroreEsecuzione &e) {
        return e.testo().isNull() ? QStringLiteral("") : e.testo();
    }
    return QString();
}

QString testoMostrato(const QString &didascalia) {
    QString testo;
    for (qsizetype i = 0; i < didascalia.size(); ++i) {
        if (didascalia.at(i) == u'&' && ++i == didascalia.size())
            break;
        testo += didascalia.at(i);
    }
    return testo;
}

void clic(QAbstractButton *pulsante) {
    const bool segno =
        qobject_cast<QCheckBox *>(pulsante) || qobject_cast<QRadioButton *>(pulsante);
    QTest::mouseClick(pulsante, Qt::LeftButton, {},
                      segno ? QPoint(8, pulsante->height() / 2) : pulsante->rect().center());
}

void scriviSopra(QLineEdit *campo, const QString &testo) {
    campo->setFocus();
    campo->selectAll();
    QTest::keyClick(campo, Qt::Key_Delete);
    QTest::keyClicks(campo, testo);
}

void clicDestro(VistaGriglia *vista, int riga, int colonna) {
    const QPoint punto = vista->visualRect(vista->model()->index(riga, colonna)).center();
    QTest::mousePress(vista->viewport(), Qt::RightButton, {}, punto);
    QTest::mouseRelease(vista->viewport(), Qt::RightButton, {}, punto);
}

void doppioClic(VistaGriglia *vista, int riga, int colonna) {
    const QPoint punto = vista->visualRect(vista->model()->index(riga, colonna)).center();
    QTest::mouseDClick(vista->viewport(), Qt::LeftButton, {}, punto);
}

void clicIntestazione(VistaGriglia *vista, int colonna) {
    QHeaderView *intestazione = vista->horizontalHeader();
    const QPoint punto(intestazione->sectionViewportPosition(colonna) +
                           intestazione->sectionSize(colonna) / 2,
                       intestazione->height() / 2);
    QTest::mouseClick(intestazione->viewport(), Qt::LeftButton, {}, punto);
}

namespace {

// Just inside the right edge of the column's header, where the mouse takes the edge.
QPoint bordo(QHeaderView *intestazione, int colonna) {
    return {intestazione->sectionViewportPosition(colonna) + intestazione->sectionSize(colonna) - 1,
            intestazione->height() / 2};
}

void invia(QWidget *w, QEvent::Type tipo, QPoint punto, Qt::MouseButton pulsante,
           Qt::MouseButtons premuti) {
    QMouseEvent evento(tipo, punto, w->mapToGlobal(punto), pulsante, premuti, Qt::NoModifier);
    QApplication::sendEvent(w, &evento);
}

} // namespace

void trascinaBordo(VistaGriglia *vista, int colonna, int dx) {
    QHeaderView *intestazione = vista->horizontalHeader();
    QWidget *w = intestazione->viewport();
    const QPoint da = bordo(intestazione, colonna);
    invia(w, QEvent::MouseButtonPress, da, Qt::LeftButton, Qt::LeftButton);
    // In steps, as a hand moves.
    for (int passo = 1; passo <= 4; ++passo)
        invia(w, QEvent::MouseMove, da + QPoint(dx * passo / 4, 0), Qt::NoButton, Qt::LeftButton);
    invia(w, QEvent::MouseButtonRelease, da + QPoint(dx, 0), Qt::LeftButton, Qt::NoButton);
}

namespace {

// The events of a hand's double click: press, release, the second press as a double click,
// release.
void doppioClicIn(QWidget *w, QPoint punto) {
    invia(w, QEvent::MouseButtonPress, punto, Qt::LeftButton, Qt::LeftButton);
    invia(w, QEvent::MouseButtonRelease, punto, Qt::LeftButton, Qt::NoButton);
    invia(w, QEvent::MouseButtonDblClick, punto, Qt::LeftButton, Qt::LeftButton);
    invia(w, QEvent::MouseButtonRelease, punto, Qt::LeftButton, Qt::NoButton);
}

} // namespace

void doppioClicBordo(VistaGriglia *vista, int colonna) {
    QHeaderView *intestazione = vista->horizontalHeader();
    doppioClicIn(intestazione->viewport(), bordo(intestazione, colonna));
}

void doppioClicIntestazione(VistaGriglia *vista, int colonna) {
    QHeaderView *intestazione = vista->horizontalHeader();
    doppioClicIn(intestazione->viewport(), QPoint(intestazione->sectionViewportPosition(colonna) +
                                                      intestazione->sectionSize(colonna) / 2,
                                                  intestazione->height() / 2));
}

} // namespace StrumentiProva
