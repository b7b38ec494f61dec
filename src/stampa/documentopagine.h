#pragma once

#include "piattaforma/dispositivodisegno.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QColor>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>

// One record of the page description file, as it stands in the file: texts as read (decodifica
// keeps the blanks that pad them), lengths in twips.
struct RecordPagina {
    QString tipo;
    qint32 spessore = 0; // a Box's style
    qint16 colore = 0;   // index in the palette of 16 colours
    float x1 = 0;
    float y1 = 0;
    float x2 = 0; // or the width of an image
    float y2 = 0; // or the height of an image
    QString font;
    qint16 dimensione = 0; // points
    qint16 grassetto = 0;  // bold when not 0
    QString testo;         // for an Immagine, the picture's file

    bool operator==(const RecordPagina &) const = default;
};

// The page description file "_$$_TEMP.TMP": a report writes its pages into it as fixed-length
// records, then the preview draws them, the printer prints a range of them, or the export reads
// their texts out. An object of this class is the writer; the static functions read and draw.
class DocumentoPagine {
public:
    static constexpr int LunghezzaRecord = 186;
    static constexpr int LunghezzaTipo = 20;
    static constexpr int LunghezzaFont = 40;
    static constexpr int LunghezzaTesto = 100;

    static constexpr QStringView TipoNuovaPagina = u"Nuova Pagina";
    static constexpr QStringView TipoFinePagina = u"Fine Pagina";
    static constexpr QStringView TipoTesto = u"Testo";
    static constexpr QStringView TipoBox = u"Box";
    static constexpr QStringView TipoLinea = u"Linea";
    static constexpr QStringView TipoImmagine = u"Immagine";
    // A circle's outline: centre (X1, Y1), radius X2, pen width Spessore in the device's dots,
    // colour Colore. Only documents made in memory for the preview hold it (the play slips).
    static constexpr QStringView TipoCerchio = u"Cerchio";

    // The file of the program: "_$$_TEMP.TMP" in the system's temporary folder.
    static QString percorsoPredefinito();

    explicit DocumentoPagine(QString percorso = percorsoPredefinito());
    // Writes out what is still buffered and closes the file; never throws.
    ~DocumentoPagine();
    DocumentoPagine(const DocumentoPagine &) = delete;
    DocumentoPagine &operator=(const DocumentoPagine &) = delete;

    QString percorso() const { return m_percorso; }
    bool aperto() const { return m_file.isOpen(); }

    // Writing. Lengths are in centimetres and are stored in twips (× 567). A write on a document
    // that isn't open, or a file that can't be created or written, is a run-time fault.

    // Deletes every "_$$_*.TMP" in the file's folder, creates the file anew, starts page 1.
    void nuovoDocumento();
    void nuovaPagina();
    // Ends the last page and closes the file.
    void fineDocumento();
    // Size, bold and colour are stored as given (16 bits, else a fault); the colour is checked
    // only when drawn. Texts beyond 100 characters and fonts beyond 40 are cut.
    void scriviTesto(float x, float y, const QString &testo, const QString &font, int dimensione,
                     int grassetto, int colore);
    // The same, but the text ends at x: it starts at x less its width in that font.
    void scriviTestoDestra(float x, float y, const QString &testo, const QString &font,
                           int dimensione, int grassetto, int colore);
    void scriviBox(float x1, float y1, float x2, float y2, int stile, int colore);
    // A rule from (x1, y1) to (x2, y2), in the colour of the last text drawn.
    void scriviLinea(float x1, float y1, float x2, float y2);

    // Reading. `leggi` returns every record with Tipo, Font and Testo trimmed of blanks at both
    // ends; a file that can't be read or whose length isn't a whole number of records is a fault.
    static QList<RecordPagina> leggi(const QString &percorso);
    // The plain codec of one record (exactly 186 bytes). decodifica does not trim: the fields
    // come back padded as they stand; trimming is the reader's step.
    static QByteArray codifica(const RecordPagina &record);
    static RecordPagina decodifica(QByteArrayView byte);

    static int contaPagine(const QList<RecordPagina> &record);
    // The classic palette of 16 colours; an index beyond 0..15 is a fault.
    static QColor colore(int indice);

    // Prints pages prima..ultima (1-based) on the device: nuovaPagina before each page after the
    // first printed, fineDocumento at the end, also after a cancel. `annullato` is asked at the
    // start of each page and at the end of each printed page; `avanzamento` is told the pages
    // printed so far when each one starts (the caller lets the interface run there).
    static void stampaPagine(const QList<RecordPagina> &record, DispositivoDisegno &d, int prima,
                             int ultima, const std::function<bool()> &annullato = {},
                             const std::function<void(int)> &avanzamento = {});
    // One page for the preview: the same drawing, without nuovaPagina and fineDocumento.
    static void disegnaPagina(const QList<RecordPagina> &record, int pagina, DispositivoDisegno &d);

    // The filled width of the progress bar after `corrente` pages of prima..ultima; -1 when the
    // range is empty, overflows, or gives no valid width (the bar is then left as it is).
    static int riempimentoAvanzamento(int larghezza, int prima, int ultima, int corrente);

    // The sheet of the export: rows of 9 cells (row 1 first). The first 3 texts of the document
    // and the first 12 of each later page are the page heads and stay out; each 9 texts after
    // them fill a row.
    static QList<QStringList> celleEsportazione(const QList<RecordPagina> &record);

private:
    void scriviRecord(QStringView tipo, qint32 spessore, qint16 colore, float x1, float y1,
                      float x2, float y2, QStringView font, qint16 dimensione, qint16 grassetto,
                      QStringView testo);
    void verificaAperto() const;
    void svuota();

    QString m_percorso;
    QFile m_file;
    QByteArray m_buffer;
};
