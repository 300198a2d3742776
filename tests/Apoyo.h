#pragma once

#include "shell/CatalogoMensajes.h"
#include "shell/ServicioConexion.h"

#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

// Engines the tests run on: "sqlite" always, "mariadb" when the test script has
// started the server and named its DSN in ESCRIBANO_PRUEBA_DSN.
std::vector<std::string> MotoresDePrueba();
// Name of a parameterised test: the engine.
std::string NombreMotor(const testing::TestParamInfo<std::string> &info);

// A temporary installation: gRutaApp in a fresh folder with Nimbar.mdb holding
// company 1, whose database has the whole schema and no rows (SQLite file or the
// MariaDB test database, emptied). Installs a recording message presenter and a
// recorder of statements, and clears the session.
class EmpresaPrueba {
public:
  explicit EmpresaPrueba(const std::string &motor = "sqlite");
  ~EmpresaPrueba();

  const QString &Ruta() const { return ruta_; }
  QString Conexion() const { return conexion_; }
  int Motor() const { return motorNum_; }
  // A new connection to the company database.
  ConexionPtr Abrir() const;
  // Abrir, with the company's identity filled (ADMIN's password claveAdmin) and the session
  // as ADMIN in company 1, as the login leaves it.
  ConexionPtr AbrirComoAdmin(const QString &claveAdmin) const;
  // A new connection to the general database.
  ConexionPtr AbrirGeneral() const;
  // The single value of a query, as text.
  QString Valor(const QString &sql) const;
  int Contar(const QString &tabla) const;

  PresentadorGrabador mensajes;
  Grabadora grabadora;

private:
  QTemporaryDir dir_;
  QString ruta_;
  QString conexion_;
  int motorNum_ = 0;
};

// Writes a file (bytes as given) under a folder.
void EscribirArchivo(const QString &ruta, const QByteArray &bytes);
QByteArray LeerArchivo(const QString &ruta);
// Expected lines or rows, written as UTF-8 literals.
QStringList L(std::initializer_list<const char *> lineas);

// Readable QString in test failures.
inline void PrintTo(const QString &texto, std::ostream *os) { *os << texto.toStdString(); }
