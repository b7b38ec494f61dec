#include "core/guida.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

// A word of the search found in a page's title weighs as much as this many in its text, so that
// the page about a subject comes before the pages that mention it.
constexpr int PesoTitolo = 10;

QString entita(const QString &nome) {
    static const QHash<QString, QString> note{
        {u"amp"_s, u"&"_s},    {u"lt"_s, u"<"_s},     {u"gt"_s, u">"_s},     {u"quot"_s, u"\""_s},
        {u"apos"_s, u"'"_s},   {u"nbsp"_s, u" "_s},   {u"agrave"_s, u"à"_s}, {u"egrave"_s, u"è"_s},
        {u"eacute"_s, u"é"_s}, {u"igrave"_s, u"ì"_s}, {u"ograve"_s, u"ò"_s}, {u"ugrave"_s, u"ù"_s},
        {u"Agrave"_s, u"À"_s}, {u"Egrave"_s, u"È"_s}, {u"Eacute"_s, u"É"_s}, {u"mdash"_s, u"—"_s},
        {u"ndash"_s, u"–"_s},  {u"hellip"_s, u"…"_s}, {u"laquo"_s, u"«"_s},  {u"raquo"_s, u"»"_s},
        {u"rsquo"_s, u"’"_s},  {u"times"_s, u"×"_s},  {u"ordf"_s, u"ª"_s},   {u"ordm"_s, u"º"_s},
        {u"euro"_s, u"€"_s},   {u"rarr"_s, u"→"_s},   {u"deg"_s, u"°"_s},
    };
    if (nome.startsWith(u'#')) {
        bool ok = false;
        const uint codice = nome.startsWith(u"#x"_s, Qt::CaseInsensitive)
                                ? nome.mid(2).toUInt(&ok, 16)
                                : nome.mid(1).toUInt(&ok, 10);
        if (ok && codice > 0 && codice <= 0x10FFFF) {
            const char32_t c = codice;
            return QString::fromUcs4(&c, 1);
        }
        return {};
    }
    return note.value(nome);
}

QString decodifica(const QString &testo) {
    static const QRegularExpression riferimento(u"&(#[0-9]+|#[xX][0-9a-fA-F]+|[A-Za-z]+);"_s);
    QString esito;
    qsizetype da = 0;
    for (auto it = riferimento.globalMatch(testo); it.hasNext();) {
        const QRegularExpressionMatch m = it.next();
        const QString sostituto = entita(m.captured(1));
        if (sostituto.isEmpty())
            continue; // an unknown entity stays as written
        esito += QStringView(testo).mid(da, m.capturedStart() - da);
        esito += sostituto;
        da = m.capturedEnd();
    }
    esito += QStringView(testo).mid(da);
    return esito;
}

// The value of an attribute of one tag, or a null string.
QString attributo(const QString &tag, const QString &nome) {
    const QRegularExpression re(u"\\b"_s + QRegularExpression::escape(nome) +
                                    u"\\s*=\\s*(\"([^\"]*)\"|'([^']*)')"_s,
                                QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch m = re.match(tag);
    if (!m.hasMatch())
        return {};
    return decodifica(m.capturedStart(2) >= 0 ? m.captured(2) : m.captured(3));
}

bool inizioParola(const QString &testo, qsizetype i) {
    return i == 0 || !testo.at(i - 1).isLetterOrNumber();
}

int conta(const QString &testo, const QString &parola) {
    int n = 0;
    for (qsizetype i = testo.indexOf(parola); i >= 0; i = testo.indexOf(parola, i + 1))
        if (inizioParola(testo, i))
            ++n;
    return n;
}

} // namespace

QString Guida::risorse() {
    return u":/guida"_s;
}

QString Guida::paginaIniziale() {
    return u"index.html"_s;
}

QString Guida::paginaCornice() {
    return u"cornice.html"_s;
}

QStringList Guida::sezioni() {
    return {u"Primi passi"_s, u"Schermi"_s, u"Percorsi"_s, u"Oltre il consueto"_s};
}

Guida::Guida(const QString &cartella) {
    const QDir dir(cartella);
    const QStringList file = dir.entryList({u"*.html"_s}, QDir::Files, QDir::Name);
    for (const QString &nome : file)
        leggi(dir.filePath(nome));
    const QStringList ordine = sezioni();
    const auto posto = [&ordine](const Pagina &p) {
        const qsizetype i = ordine.indexOf(p.sezione);
        return i < 0 ? ordine.size() : i;
    };
    // Index order throughout, so that pages with as many hits keep their place in the index.
    std::stable_sort(m_pagine.begin(), m_pagine.end(), [&](const Pagina &a, const Pagina &b) {
        const auto ca = std::make_tuple(posto(a), a.sezione, a.ordine, a.titolo);
        const auto cb = std::make_tuple(posto(b), b.sezione, b.ordine, b.titolo);
        return ca < cb;
    });
}

void Guida::leggi(const QString &percorso) {
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly))
        return;
    const QString html = QString::fromUtf8(f.readAll());
    Pagina p;
    p.file = QFileInfo(percorso).fileName();

    static const QRegularExpression titolo(u"<title[^>]*>(.*?)</title>"_s,
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::DotMatchesEverythingOption);
    p.titolo = decodifica(titolo.match(html).captured(1)).simplified();
    if (p.titolo.isEmpty())
        p.titolo = p.file;

    static const QRegularExpression meta(u"<meta\\b[^>]*>"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    for (auto it = meta.globalMatch(html); it.hasNext();) {
        const QString tag = it.next().captured();
        const QString nome = attributo(tag, u"name"_s).trimmed().toLower();
        const QString valore = attributo(tag, u"content"_s).simplified();
        if (nome == u"sezione"_s)
            p.sezione = valore;
        else if (nome == u"ordine"_s)
            p.ordine = valore.toInt();
        else if (nome == u"schermi"_s)
            p.schermi = valore.split(u' ', Qt::SkipEmptyParts);
    }
    p.testo = testoSemplice(html);
    p.confronto = piega(p.testo);
    m_pagine.append(std::move(p));
}

const Guida::Pagina *Guida::pagina(const QString &file) const {
    for (const Pagina &p : m_pagine)
        if (p.file == file)
            return &p;
    return nullptr;
}

QList<Guida::Sezione> Guida::indice() const {
    QList<Sezione> sezioni;
    for (const Pagina &p : m_pagine) {
        if (sezioni.isEmpty() || sezioni.last().nome != p.sezione)
            sezioni.append({p.sezione, {}});
        sezioni.last().pagine.append(&p);
    }
    return sezioni;
}

QString Guida::paginaDi(const QString &schermo) const {
    for (const Pagina &p : m_pagine)
        if (p.schermi.contains(schermo))
            return p.file;
    return {};
}

QString Guida::paginaDiSchermo(const QString &schermo) const {
    const QString pagina = paginaDi(schermo);
    return pagina.isEmpty() ? paginaCornice() : pagina;
}

QStringList Guida::paroleDi(const QString &parole) {
    static const QRegularExpression separatori(u"[^\\p{L}\\p{N}]+"_s);
    QStringList esito;
    const QStringList pezzi = piega(parole).split(separatori, Qt::SkipEmptyParts);
    for (const QString &parola : pezzi)
        // A lone letter (the "l" of "l'archivio") would be found everywhere; a lone digit is
        // the game of the 9.
        if ((parola.size() > 1 || parola.at(0).isDigit()) && !esito.contains(parola))
            esito.append(parola);
    return esito;
}

QList<Guida::Risultato> Guida::cerca(const QString &parole) const {
    const QStringList cercate = paroleDi(parole);
    if (cercate.isEmpty())
        return {};
    struct Voce {
        Risultato risultato;
        int peso;
    };
    QList<Voce> voci;
    for (const Pagina &p : m_pagine) {
        const QString titolo = piega(p.titolo);
        int occorrenze = 0;
        int peso = 0;
        bool tutte = true;
        for (const QString &parola : cercate) {
            const int nelTesto = conta(p.confronto, parola);
            const int nelTitolo = conta(titolo, parola);
            if (nelTesto + nelTitolo == 0) {
                tutte = false;
                break;
            }
            occorrenze += nelTesto;
            peso += nelTesto + PesoTitolo * nelTitolo;
        }
        if (tutte)
            voci.append({{&p, occorrenze}, peso});
    }
    std::stable_sort(voci.begin(), voci.end(),
                     [](const Voce &a, const Voce &b) { return a.peso > b.peso; });
    QList<Risultato> esito;
    for (const Voce &v : voci)
        esito.append(v.risultato);
    return esito;
}

QString Guida::piega(const QString &testo) {
    QString esito(testo.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < testo.size(); ++i) {
        QChar c = testo.at(i);
        if (c.decompositionTag() == QChar::Canonical)
            c = c.decomposition().at(0);
        else if (c == u'’' || c == u'‘')
            c = u'\'';
        esito[i] = c.toCaseFolded();
    }
    return esito;
}

QString Guida::testoSemplice(const QString &html) {
    static const QRegularExpression inutile(
        u"<!--.*?-->|<head\\b.*?</head>|<script\\b.*?</script>|<style\\b.*?</style>"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    // Tags inside a word join its pieces; the others part words.
    static const QRegularExpression inLinea(u"</?(b|i|em|strong|code|a|span|small)\\b[^>]*>"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression tag(u"<[^>]*>"_s);
    QString t = html;
    t.remove(inutile);
    t.remove(inLinea);
    t.replace(tag, u" "_s);
    return decodifica(t).simplified();
}

QList<std::pair<qsizetype, qsizetype>> Guida::trova(const QString &testo,
                                                    const QStringList &parole) {
    const QString piegato = piega(testo);
    QList<std::pair<qsizetype, qsizetype>> esito;
    for (const QString &parola : parole)
        for (qsizetype i = piegato.indexOf(parola); i >= 0; i = piegato.indexOf(parola, i + 1))
            if (inizioParola(piegato, i))
                esito.append({i, parola.size()});
    std::sort(esito.begin(), esito.end());
    return esito;
}
