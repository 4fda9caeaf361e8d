#include <QCoreApplication>

#include <benchmark/benchmark.h>

// Sockets and the map store need an application object, without widgets.
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
