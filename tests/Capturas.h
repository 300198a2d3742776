#pragma once

#include <QDir>
#include <QString>
#include <QWidget>

// Saves a picture of a screen as <nombre>.png in the folder named by ESCRIBANO_CAPTURAS,
// when it is set, so that the screens can be looked at after a run.
inline void GuardarCaptura(QWidget *pantalla, const QString &nombre) {
  const QString carpeta = qEnvironmentVariable("ESCRIBANO_CAPTURAS");
  if (carpeta.isEmpty())
    return;
  QDir().mkpath(carpeta);
  pantalla->grab().save(QDir(carpeta).filePath(nombre + QStringLiteral(".png")));
}
