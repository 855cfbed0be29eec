/// Runs blocking work on another thread.
#pragma once

#include "GLib/GLibHandles.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace vireline::xdg {

/// Calls `work` on one of GLib's threads, then `done` with its result on this thread, from the main
/// loop. `work` may only use what it captures.
template <class T>
void runInWorker(std::function<T()> work, std::function<void(T)> done) {
    struct Job {
        std::function<T()> work;
        std::function<void(T)> done;
        std::optional<T> result;
    };
    auto job = std::make_unique<Job>(Job{std::move(work), std::move(done), std::nullopt});
    const auto finish = [](GObject*, GAsyncResult* result, gpointer) {
        auto* finished = static_cast<Job*>(g_task_get_task_data(G_TASK(result)));
        if (finished->result)
            finished->done(std::move(*finished->result));
    };
    const auto run = [](GTask* task, gpointer, gpointer data, GCancellable*) {
        auto* running = static_cast<Job*>(data);
        running->result.emplace(running->work());
        g_task_return_boolean(task, TRUE);
    };
    const GObjectHandle<GTask> task{g_task_new(nullptr, nullptr, finish, nullptr)};
    g_task_set_task_data(task.get(), job.release(), [](gpointer data) {
        delete static_cast<Job*>(data); // NOLINT(cppcoreguidelines-owning-memory): the task's
    });
    g_task_run_in_thread(task.get(), run);
}

}
