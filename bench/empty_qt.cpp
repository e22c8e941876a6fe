// The least that a Qt program does: start, make its application, end. The bound for the start of ours.
#include <QGuiApplication>

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  return 0;
}
