#include "supporto/strumentiprova.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/vistagriglia.h"

#include <QCheckBox>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QLineEdit>
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

} // namespace StrumentiProva
