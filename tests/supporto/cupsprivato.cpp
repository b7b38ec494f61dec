#include "supporto/cupsprivato.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString Cupsd = u"/usr/sbin/cupsd"_s;
const QString Lpadmin = u"/usr/sbin/lpadmin"_s;
const QString Lpstat = u"/usr/bin/lpstat"_s;
const QString BackendPdf = u"/usr/lib/cups/backend/cups-pdf"_s;
// Without options of its own, so that the backend's settings below decide the file names.
const QString PpdPdf = u"/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd"_s;
// cups-pdf reads its settings only from here (the path is built into the backend).
const QString CartellaConfigurazioneBackend = u"/etc/cups"_s;
const QString Coda = u"VesparaPDF"_s;
// The prefix of what an instance leaves outside its own folder, followed by its process id.
const QString Prefisso = u"vespara-cups-"_s;

// The process id in "<prefix><pid>-...", 0 when the name has none.
qint64 pidNelNome(const QString &nome, const QString &prefisso) {
    if (!nome.startsWith(prefisso))
        return 0;
    const QString resto = nome.mid(prefisso.size());
    bool ok = false;
    const qint64 pid = resto.left(resto.indexOf(u'-')).toLongLong(&ok);
    return ok ? pid : 0;
}

bool processoVivo(qint64 pid) {
    return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno != ESRCH;
}

// True when something accepts connections on the unix socket.
bool accetta(const QString &percorso) {
    const QByteArray nome = QFile::encodeName(percorso);
    sockaddr_un indirizzo{};
    indirizzo.sun_family = AF_UNIX;
    if (nome.size() >= qsizetype(sizeof(indirizzo.sun_path)))
        return false;
    memcpy(indirizzo.sun_path, nome.constData(), nome.size());
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return false;
    const bool connesso =
        ::connect(fd, reinterpret_cast<const sockaddr *>(&indirizzo), sizeof(indirizzo)) == 0;
    ::close(fd);
    return connesso;
}

// The number of the job in the name of a PDF that cups-pdf wrote.
int numeroLavoro(const QString &nome) {
    static const QRegularExpression numero(u"^job_(\\d+)-"_s);
    return numero.match(nome).captured(1).toInt();
}

// Waits without starving the event loop when there is one (a screen may be printing).
void pausa(int millisecondi) {
    if (QCoreApplication::instance())
        QTest::qWait(millisecondi);
    else
        QThread::msleep(millisecondi);
}

} // namespace

CupsPrivato::CupsPrivato() = default;

CupsPrivato::~CupsPrivato() {
    ferma();
    if (!m_configurazioneBackend.isEmpty())
        QFile::remove(m_configurazioneBackend);
    if (m_ambienteImpostato) {
        for (const Variabile &v : std::as_const(m_ambiente)) {
            if (v.impostata)
                qputenv(v.nome.constData(), v.valore);
            else
                qunsetenv(v.nome.constData());
        }
    }
}

QString CupsPrivato::nomeCoda() const {
    return Coda;
}

QString CupsPrivato::cartellaUscita() const {
    return percorso(u"uscita"_s);
}

QString CupsPrivato::socket() const {
    return percorso(u"cups.sock"_s);
}

QString CupsPrivato::percorso(const QString &nome) const {
    return m_dir ? m_dir->filePath(nome) : QString();
}

bool CupsPrivato::scrivi(const QString &file, const QByteArray &testo) {
    QFile f(file);
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(testo) == testo.size() &&
        f.flush())
        return true;
    m_errore = u"Non riesco a scrivere %1: %2"_s.arg(file, f.errorString());
    return false;
}

bool CupsPrivato::avvia() {
    m_errore.clear();
    if (m_cupsd) {
        m_errore = u"Il cupsd privato è già stato avviato."_s;
        return false;
    }
    // The backend is executable by root only and reads its settings from /etc/cups.
    if (::geteuid() != 0) {
        m_errore = u"Serve root: cups-pdf gira solo sotto un cupsd avviato da root e legge le "
                   u"sue impostazioni da %1."_s.arg(CartellaConfigurazioneBackend);
        return false;
    }
    for (const QString &necessario : {Cupsd, Lpadmin, Lpstat, BackendPdf, PpdPdf}) {
        if (!QFileInfo::exists(necessario)) {
            m_errore = u"Manca %1 (pacchetti cups e printer-driver-cups-pdf)."_s.arg(necessario);
            return false;
        }
    }
    rimuoviConfigurazioniOrfane();

    const QString pid = QString::number(QCoreApplication::applicationPid());
    m_dir = std::make_unique<QTemporaryDir>(QDir::temp().filePath(Prefisso + pid + u"-XXXXXX"_s));
    if (!m_dir->isValid()) {
        m_errore = u"Non riesco a creare la cartella temporanea: %1"_s.arg(m_dir->errorString());
        return false;
    }
    const QString radice = m_dir->path();
    if (QFile::encodeName(socket()).size() >= qsizetype(sizeof(sockaddr_un::sun_path))) {
        m_errore = u"Il percorso del socket %1 è troppo lungo (TMPDIR)."_s.arg(socket());
        return false;
    }
    for (const QString &sotto :
         {u"spool/tmp"_s, u"cache"_s, u"stato"_s, u"ssl"_s, u"log"_s, u"uscita"_s, u"cups-pdf"_s}) {
        if (!QDir(radice).mkpath(sotto)) {
            m_errore = u"Non riesco a creare %1."_s.arg(percorso(sotto));
            return false;
        }
    }

    // Everything the server writes stays in the folder; no TCP port, no sharing, no browsing.
    const QByteArray r = QFile::encodeName(radice);
    const QByteArray file =
        "ServerRoot " + r + "\nRequestRoot " + r + "/spool\nTempDir " + r +
        "/spool/tmp\nCacheDir " + r + "/cache\nStateDir " + r + "/stato\nServerKeychain " + r +
        "/ssl\nErrorLog " + r + "/log/error_log\nAccessLog " + r + "/log/access_log\nPageLog " + r +
        "/log/page_log\nPrintcap " + r + "/printcap\nSystemGroup root\nCreateSelfSignedCerts no\n";
    // No authentication: a throwaway server with a PDF queue, reachable through its socket only.
    // A failed job is aborted instead of stopping the queue for the jobs after it.
    const QByteArray server = "Listen " + QFile::encodeName(socket()) +
                              "\nBrowsing No\nBrowseLocalProtocols none\nWebInterface No\n"
                              "LogLevel info\nMaxLogSize 0\nErrorPolicy abort-job\n"
                              "DefaultAuthType None\n"
                              "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
                              "<Policy default>\n  JobPrivateAccess all\n"
                              "  JobPrivateValues none\n  SubscriptionPrivateAccess all\n"
                              "  SubscriptionPrivateValues none\n"
                              "  <Limit All>\n    Order deny,allow\n  </Limit>\n</Policy>\n";
    if (!scrivi(percorso(u"cups-files.conf"_s), file) || !scrivi(percorso(u"cupsd.conf"_s), server))
        return false;

    // cups-pdf takes its output folder only from a file in /etc/cups: cups-pdf.conf, or
    // cups-pdf-<name>.conf for the device URI cups-pdf:/<name>. A name of this instance's own
    // keeps the system's queues and the other instances apart; the destructor removes the file,
    // the next start removes those of instances that died.
    const QString nomeBackend =
        Prefisso + pid + u'-' + QFileInfo(radice).fileName().section(u'-', -1);
    m_configurazioneBackend =
        QDir(CartellaConfigurazioneBackend).filePath(u"cups-pdf-%1.conf"_s.arg(nomeBackend));
    // The title the program gives the job names the file, after the job number.
    const QByteArray backend = "Out " + r + "/uscita\nAnonDirName " + r + "/uscita\nSpool " + r +
                               "/cups-pdf\nLog " + r + "/log\nGSTmp " + r +
                               "/spool/tmp\nGrp lp\nLabel 1\nTitlePref 1\nLogType 3\n";
    if (!scrivi(m_configurazioneBackend, backend)) {
        m_configurazioneBackend.clear();
        return false;
    }

    m_cupsd = std::make_unique<QProcess>();
    m_cupsd->setProcessChannelMode(QProcess::MergedChannels);
    // If the test dies without its destructors, the server goes with it.
    m_cupsd->setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_cupsd->start(Cupsd, {u"-f"_s, u"-c"_s, percorso(u"cupsd.conf"_s), u"-s"_s,
                           percorso(u"cups-files.conf"_s)});
    if (!m_cupsd->waitForStarted(5000)) {
        m_errore = u"cupsd non parte: %1"_s.arg(m_cupsd->errorString());
        return false;
    }
    QElapsedTimer attesa;
    attesa.start();
    bool pronto = false;
    while (!pronto && attesa.elapsed() < 10000) {
        if (m_cupsd->state() == QProcess::NotRunning || m_cupsd->waitForFinished(0)) {
            m_errore = u"cupsd è terminato subito (codice %1). Uscita:\n%2\n%3"_s.arg(
                QString::number(m_cupsd->exitCode()),
                QString::fromLocal8Bit(m_cupsd->readAll()).trimmed(), codaDelLog(u"error_log"_s));
            return false;
        }
        pronto = accetta(socket());
        if (!pronto)
            QThread::msleep(50);
    }
    if (!pronto) {
        m_errore = u"Il socket %1 di cupsd non accetta connessioni dopo 10 s.\n%2"_s.arg(
            socket(), codaDelLog(u"error_log"_s));
        return false;
    }

    QString uscita;
    m_dispositivo = u"cups-pdf:/"_s + nomeBackend;
    if (!esegui(Lpadmin, {u"-p"_s, Coda, u"-E"_s, u"-v"_s, m_dispositivo, u"-P"_s, PpdPdf},
                &uscita)) {
        m_errore = u"lpadmin non ha creato la coda %1:\n%2\n%3"_s.arg(Coda, uscita,
                                                                      codaDelLog(u"error_log"_s));
        return false;
    }
    if (!esegui(Lpadmin, {u"-d"_s, Coda}, &uscita)) {
        m_errore = u"lpadmin non ha reso %1 la coda predefinita:\n%2"_s.arg(Coda, uscita);
        return false;
    }

    // libcups (and Qt's print support with it) talks to this server; a printer named by the
    // user's environment would take the place of its default.
    for (const char *nome : {"CUPS_SERVER", "PRINTER", "LPDEST"})
        m_ambiente.append({nome, qEnvironmentVariableIsSet(nome), qgetenv(nome)});
    m_ambienteImpostato = true;
    qputenv("CUPS_SERVER", QFile::encodeName(socket()));
    qunsetenv("PRINTER");
    qunsetenv("LPDEST");
    return true;
}

bool CupsPrivato::aggiungiCodaConMargini(const QString &nome, const QMarginsF &punti) {
    m_errore.clear();
    if (!m_cupsd || m_dispositivo.isEmpty()) {
        m_errore = u"Il cupsd privato non è in funzione."_s;
        return false;
    }
    QFile originale(PpdPdf);
    if (!originale.open(QIODevice::ReadOnly)) {
        m_errore = u"Non riesco a leggere %1."_s.arg(PpdPdf);
        return false;
    }
    // The printable area of A4 (595 x 842 points) from the bottom left corner, as PPD files give
    // it, and the same edges for any other size.
    QByteArray ppd = originale.readAll();
    const auto numero = [](double v) { return QByteArray::number(v, 'f', 2); };
    const QByteArray area = numero(punti.left()) + ' ' + numero(punti.bottom()) + ' ' +
                            numero(595 - punti.right()) + ' ' + numero(842 - punti.top());
    const QByteArray margini = numero(punti.left()) + ' ' + numero(punti.bottom()) + ' ' +
                               numero(punti.right()) + ' ' + numero(punti.top());
    const QByteArray areaA4 = "*ImageableArea A4/A4: \"0 0 595 842\"";
    const QByteArray margini0 = "*HWMargins: 0 0 0 0";
    if (!ppd.contains(areaA4) || !ppd.contains(margini0)) {
        m_errore = u"%1 non ha l'area stampabile attesa per A4."_s.arg(PpdPdf);
        return false;
    }
    ppd.replace(areaA4, "*ImageableArea A4/A4: \"" + area + '"');
    ppd.replace(margini0, "*HWMargins: " + margini);
    const QString file = percorso(nome + u".ppd"_s);
    if (!scrivi(file, ppd))
        return false;
    QString uscita;
    if (!esegui(Lpadmin, {u"-p"_s, nome, u"-E"_s, u"-v"_s, m_dispositivo, u"-P"_s, file},
                &uscita)) {
        m_errore = u"lpadmin non ha creato la coda %1:\n%2"_s.arg(nome, uscita);
        return false;
    }
    return true;
}

QString CupsPrivato::attendiPdf(int millisecondi) {
    m_errore.clear();
    if (!m_cupsd || m_cupsd->state() != QProcess::Running) {
        m_errore = u"Il cupsd privato non è in funzione."_s;
        return QString();
    }
    QHash<QString, qint64> dimensioni;
    QElapsedTimer attesa;
    attesa.start();
    for (;;) {
        // In the order the jobs were queued: cups-pdf puts "job_<number>-" before the title.
        QFileInfoList pdf = QDir(cartellaUscita()).entryInfoList({u"*.pdf"_s}, QDir::Files);
        std::ranges::sort(pdf, {}, [](const QFileInfo &f) { return numeroLavoro(f.fileName()); });
        for (const QFileInfo &f : pdf) {
            const QString p = f.absoluteFilePath();
            if (m_consegnati.contains(p))
                continue;
            // A file is finished when its size held still since the last look and no job is
            // still being processed (cups-pdf writes it before the job completes).
            const qint64 prima = dimensioni.value(p, -1);
            dimensioni.insert(p, f.size());
            bool riuscito = false;
            if (f.size() > 0 && prima == f.size() && lavoriInCorso(&riuscito).isEmpty() &&
                riuscito) {
                m_consegnati.insert(p);
                return p;
            }
            break;
        }
        if (m_cupsd->state() != QProcess::Running || m_cupsd->waitForFinished(0)) {
            m_errore = u"cupsd è terminato durante l'attesa del PDF.\n%1"_s.arg(diagnosi());
            return QString();
        }
        if (attesa.elapsed() >= millisecondi)
            break;
        pausa(200);
    }
    m_errore = u"Nessun PDF finito in %1 entro %2 ms.\n%3"_s.arg(
        cartellaUscita(), QString::number(millisecondi), diagnosi());
    return QString();
}

bool CupsPrivato::esegui(const QString &programma, const QStringList &argomenti,
                         QString *uscita) const {
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(programma, QStringList{u"-h"_s, socket()} + argomenti);
    const bool finito = p.waitForFinished(20000);
    if (!finito) {
        p.kill();
        p.waitForFinished(2000);
    }
    *uscita = QString::fromLocal8Bit(p.readAll()).trimmed();
    if (!finito)
        *uscita += u"\n(%1 non ha finito entro 20 s: %2)"_s.arg(programma, p.errorString());
    return finito && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

QString CupsPrivato::lavoriInCorso(bool *riuscito) const {
    QString uscita;
    // Of every queue of the server: they all write into the same folder.
    *riuscito = esegui(Lpstat, {u"-o"_s}, &uscita);
    return uscita;
}

QString CupsPrivato::codaDelLog(const QString &nome, int righe) const {
    QFile f(percorso(u"log/"_s + nome));
    if (!f.open(QIODevice::ReadOnly))
        return u"(%1 non c'è)"_s.arg(nome);
    const QStringList tutte = QString::fromLocal8Bit(f.readAll()).split(u'\n', Qt::SkipEmptyParts);
    return u"Ultime righe di %1:\n%2"_s.arg(nome,
                                            tutte.mid(qMax(0, tutte.size() - righe)).join(u'\n'));
}

QString CupsPrivato::diagnosi() const {
    QString inCorso, finiti, stato;
    esegui(Lpstat, {u"-o"_s}, &inCorso);
    esegui(Lpstat, {u"-W"_s, u"completed"_s, u"-o"_s}, &finiti);
    esegui(Lpstat, {u"-p"_s, Coda}, &stato);
    const auto oNessuno = [](const QString &t) { return t.isEmpty() ? u"(nessuno)"_s : t; };
    return u"Lavori in corso:\n%1\nLavori finiti:\n%2\nStato della coda:\n%3\n%4\n%5"_s.arg(
        oNessuno(inCorso), oNessuno(finiti), stato, codaDelLog(u"error_log"_s),
        codaDelLog(u"cups-pdf-%1_log"_s.arg(Coda)));
}

void CupsPrivato::ferma() {
    if (!m_cupsd)
        return;
    if (m_cupsd->state() != QProcess::NotRunning) {
        m_cupsd->terminate();
        if (!m_cupsd->waitForFinished(5000)) {
            m_cupsd->kill();
            m_cupsd->waitForFinished(3000);
        }
    }
    m_cupsd.reset();
}

void CupsPrivato::rimuoviConfigurazioniOrfane() {
    const QDir etc(CartellaConfigurazioneBackend);
    const QString prefisso = u"cups-pdf-"_s + Prefisso;
    const QStringList configurazioni = etc.entryList({prefisso + u"*.conf"_s}, QDir::Files);
    for (const QString &nome : configurazioni) {
        const qint64 pid = pidNelNome(nome, prefisso);
        if (pid > 0 && !processoVivo(pid))
            QFile::remove(etc.filePath(nome));
    }
    const QDir temp = QDir::temp();
    const QStringList cartelle = temp.entryList({Prefisso + u"*"_s}, QDir::Dirs);
    for (const QString &nome : cartelle) {
        const qint64 pid = pidNelNome(nome, Prefisso);
        if (pid > 0 && !processoVivo(pid))
            QDir(temp.filePath(nome)).removeRecursively();
    }
}
