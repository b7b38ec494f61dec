#include "piattaforma/dialoghi.h"

#include "piattaforma/impostazioni.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

// Names that Windows gives to its devices, whatever the suffix.
bool nomeRiservato(const QString &nome) {
    static const QStringList riservati = {
        u"CON"_s,  u"PRN"_s,  u"AUX"_s,  u"NUL"_s,  u"COM1"_s, u"COM2"_s, u"COM3"_s, u"COM4"_s,
        u"COM5"_s, u"COM6"_s, u"COM7"_s, u"COM8"_s, u"COM9"_s, u"LPT1"_s, u"LPT2"_s, u"LPT3"_s,
        u"LPT4"_s, u"LPT5"_s, u"LPT6"_s, u"LPT7"_s, u"LPT8"_s, u"LPT9"_s};
    return riservati.contains(nome, Qt::CaseInsensitive);
}

// Blanks and dots at either end: Windows drops them from names at the end, and a leading dot
// hides the file elsewhere.
QString senzaBordi(QString nome) {
    const auto bordo = [](QChar c) { return c == u' ' || c == u'.'; };
    while (!nome.isEmpty() && bordo(nome.back()))
        nome.chop(1);
    qsizetype inizio = 0;
    while (inizio < nome.size() && bordo(nome.at(inizio)))
        ++inizio;
    return nome.mid(inizio);
}

} // namespace

QString Dialoghi::titoloApplicazione() {
    return QStringLiteral("Vespara");
}

void Dialoghi::avvisoStato(const QString &testo) {
    if (!silenziato() && m_gestoreStato)
        m_gestoreStato(testo);
}

QString Dialoghi::salvaFile(const Impostazioni &impostazioni, const QString &titolo,
                            const QString &filtro, const QString &nome) {
    return dialogoSalvataggio(titolo, filtro, propostaFile(impostazioni, nome));
}

void Dialoghi::fileSalvato(Impostazioni &impostazioni, const QString &percorso) {
    impostazioni.imposta(Impostazioni::CartellaSalvataggi, QFileInfo(percorso).absolutePath());
    avvisoStato(testoFileSalvato(percorso));
}

QString Dialoghi::propostaFile(const Impostazioni &impostazioni, const QString &nome) {
    QString cartella = impostazioni.valore(Impostazioni::CartellaSalvataggi).toString();
    if (cartella.isEmpty() || !QFileInfo(cartella).isDir())
        cartella = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (cartella.isEmpty() || !QFileInfo(cartella).isDir())
        cartella = QDir::homePath();
    return QDir(cartella).filePath(nome);
}

QString Dialoghi::nomeFile(const QString &titolo, const QString &suffisso) {
    static const QString vietati = u"/\\:*?\"<>|"_s;
    QString nome;
    nome.reserve(titolo.size());
    for (const QChar c : titolo) {
        if (c.unicode() < 0x20 || c.unicode() == 0x7f)
            nome += u' ';
        else if (vietati.contains(c))
            nome += u'-';
        else
            nome += c;
    }
    nome = senzaBordi(nome.simplified());
    if (nome.size() > 100)
        nome = senzaBordi(nome.left(nome.at(99).isHighSurrogate() ? 99 : 100));
    if (nome.isEmpty())
        nome = titoloApplicazione();
    // "CON.txt" is as much the device as "CON": the mark goes before the first dot.
    if (const qsizetype punto = nome.indexOf(u'.'); nomeRiservato(nome.left(punto)))
        nome.insert(punto < 0 ? nome.size() : punto, u'_');
    return nome + u'.' + suffisso;
}

QString Dialoghi::testoFileSalvato(const QString &percorso) {
    return u"File salvato in %1"_s.arg(
        QDir::toNativeSeparators(QFileInfo(percorso).absoluteFilePath()));
}
