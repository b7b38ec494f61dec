#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

// The guide shipped with the program: HTML pages, each naming in its head the section of the
// index it belongs to, its place there and the screens it documents. This class reads them and
// answers the guide window (the index, the page of a screen, the search); it shows nothing.
class Guida {
public:
    struct Pagina {
        QString file; // "colonne9.html"
        QString titolo;
        QString sezione;
        int ordine = 0;
        QStringList schermi; // objectNames of the screens the page documents
        QString testo;       // the text without tags, as the user reads it
        QString confronto;   // the same, folded for the search (see piega)
    };

    struct Sezione {
        QString nome;
        QList<const Pagina *> pagine;
    };

    struct Risultato {
        const Pagina *pagina = nullptr;
        int occorrenze = 0;
    };

    // Where the program's guide lives, and its first page and the page of the frame.
    static QString risorse();
    static QString paginaIniziale();
    static QString paginaCornice();

    // The sections of the index, in their order.
    static QStringList sezioni();

    // Reads every *.html page of the folder (the program's resources by default). A page without
    // a title is named after its file; one of an unknown section goes after the known ones.
    explicit Guida(const QString &cartella = risorse());

    const QList<Pagina> &pagine() const { return m_pagine; }
    const Pagina *pagina(const QString &file) const;

    // The index: the sections in their order (only those that have pages), each with its pages
    // by their order, then by title.
    QList<Sezione> indice() const;

    // The page that documents the screen of that objectName; the frame's page when none does.
    QString paginaDiSchermo(const QString &schermo) const;
    // The same, empty when no page documents that screen.
    QString paginaDi(const QString &schermo) const;

    // The pages holding every word of `parole` (at the start of a word of the page, regardless
    // of case and accents), the most hits first; none when `parole` has no word.
    QList<Risultato> cerca(const QString &parole) const;

    // The words of a search, folded.
    static QStringList paroleDi(const QString &parole);
    // Case and accents away, one character for one, so that positions in the folded text are
    // positions in the original: "Perché" -> "perche".
    static QString piega(const QString &testo);
    // The text of an HTML page as shown: tags, head and comments dropped, entities decoded,
    // white space collapsed.
    static QString testoSemplice(const QString &html);
    // Where each word of `parole` starts a word in `testo`: the positions in `testo` and the
    // length of the word.
    static QList<std::pair<qsizetype, qsizetype>> trova(const QString &testo,
                                                        const QStringList &parole);

private:
    void leggi(const QString &percorso);

    QList<Pagina> m_pagine;
};
