#include "shell/Ayuda.h"

#include "shell/Rutas.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace ayuda {

const QList<PantallaCapitulo> &Pantallas() {
  static const QList<PantallaCapitulo> pantallas = {
      {"frmUtiCrearEmpresa", "01-instalacion"},
      {"frmAdministrador", "01-instalacion"},
      {"frmDirectorios", "01-instalacion"},
      {"frmEntrada", "02-entrada"},
      {"mdiMnuPri", "02-entrada"},
      {"frmTeclado", "02-entrada"},
      {"frmBuscar", "02-entrada"},
      {"frmCatalogo", "03-configuracion"},
      {"frmDiarios", "03-configuracion"},
      {"frmDefinirAsientos", "03-configuracion"},
      {"frmGenerarPolizas", "04-generacion"},
      {"frmVistaPrevia", "04-generacion"},
      {"frmEliminarPolizas", "05-eliminacion"},
      {"frmGenerarArchivo", "06-exportacion"},
      {"frmFormato1", "06-exportacion"},
      {"frmConsultaPolizas", "07-reportes"},
      {"frmPreview", "07-reportes"},
      {"frmUtiEmpresas", "09-empresas"},
      {"frmUtiParametros", "09-empresas"},
  };
  return pantallas;
}

QString CapituloDe(const QString &pantalla) {
  for (const PantallaCapitulo &p : Pantallas())
    if (pantalla == QLatin1String(p.pantalla))
      return QLatin1String(p.capitulo);
  return {};
}

QString RutaIndice(const QString &manual) {
  const QFileInfo info(manual);
  return QDir(info.path()).filePath(info.completeBaseName() + QStringLiteral(".paginas"));
}

bool EscribirIndice(const QString &manual, const QList<PaginaCapitulo> &capitulos) {
  QByteArray texto;
  for (const PaginaCapitulo &c : capitulos)
    texto += (c.capitulo + QLatin1Char('\t') + QString::number(c.pagina) + QLatin1Char('\t') +
              c.titulo + QLatin1Char('\n'))
                 .toUtf8();
  QSaveFile archivo(RutaIndice(manual));
  return archivo.open(QIODevice::WriteOnly) && archivo.write(texto) == texto.size() &&
         archivo.commit();
}

QList<PaginaCapitulo> LeerIndice(const QString &manual) {
  QList<PaginaCapitulo> capitulos;
  QFile archivo(RutaIndice(manual));
  if (!archivo.open(QIODevice::ReadOnly))
    return capitulos;
  for (const QByteArray &linea : archivo.readAll().split('\n')) {
    const QStringList campos = QString::fromUtf8(linea).split(QLatin1Char('\t'));
    bool ok = false;
    const int pagina = campos.size() == 3 ? campos[1].toInt(&ok) : 0;
    if (ok && pagina > 0)
      capitulos.append({campos[0], campos[2], pagina});
  }
  return capitulos;
}

QUrl Direccion(const QString &manual, const QString &pantalla) {
  QUrl url = QUrl::fromLocalFile(manual);
  const QString capitulo = CapituloDe(pantalla);
  for (const PaginaCapitulo &c : LeerIndice(manual))
    if (!capitulo.isEmpty() && c.capitulo == capitulo)
      url.setFragment(QStringLiteral("page=%1").arg(c.pagina));
  return url;
}

QString RutaManual(const QString &rutaApp) {
  return UnirRuta(UnirRuta(rutaApp, QStringLiteral("Ayuda")), QStringLiteral("TV_PVManual.pdf"));
}

bool InstalarManual(const QString &carpetaPrograma, const QString &rutaApp) {
  const QString origen = RutaNativa(RutaManual(carpetaPrograma));
  const QString destino = RutaNativa(RutaManual(rutaApp));
  if (!QFileInfo::exists(origen) || QFileInfo::exists(destino))
    return false;
  if (!QDir().mkpath(QFileInfo(destino).path()) || !QFile::copy(origen, destino))
    return false;
  QFile::copy(RutaIndice(origen), RutaIndice(destino));
  return true;
}

} // namespace ayuda
