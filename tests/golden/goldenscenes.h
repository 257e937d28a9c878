// The golden scenes: what a trader sees, each built as a host builds it.
#ifndef GOLDENSCENES_H
#define GOLDENSCENES_H

#include <QSize>
#include <QString>
#include <QVector>

#include <functional>

class SceneHost;

struct GoldenScene
{
    QString name; // also the file name of its image: <name>.png
    QSize size;
    std::function<void(SceneHost &)> build;
};

// Every scene, in the order the suite runs them.
const QVector<GoldenScene> &goldenScenes();

// The scene whose image is also the README's screenshot.
QString readmeScene();

#endif // GOLDENSCENES_H
