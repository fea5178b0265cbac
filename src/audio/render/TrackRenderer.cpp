#include "audio/render/TrackRenderer.h"

TrackRenderer::TrackRenderer(const RenderPlan &plan, FileEngineFactory makeEngine, std::size_t cores, QObject *parent)
    : QObject(parent), worker_(std::make_unique<RenderWorker>(plan, std::move(makeEngine), cores, stop_.get_token()))
{
}

TrackRenderer::~TrackRenderer()
{
    cancel();
    thread_.quit();
    thread_.wait();
}

void TrackRenderer::addTrack(const Track &track, const Instrument &instrument, GroupLevel level, double offset)
{
    worker_->addTrack(track, instrument, level, offset);
}

void TrackRenderer::render()
{
    auto *const worker = worker_.release();
    worker->moveToThread(&thread_);
    // Directly, since the interface thread may be waiting for the thread's end.
    connect(worker, &RenderWorker::renderFinished, &thread_, &QThread::quit, Qt::DirectConnection);
    connect(&thread_, &QThread::finished, worker, &QObject::deleteLater);
    connect(worker, &RenderWorker::renderProgress, this, &TrackRenderer::renderProgress);
    connect(worker, &RenderWorker::loadingSample, this, &TrackRenderer::loadingSample);
    connect(worker, &RenderWorker::warned, this, &TrackRenderer::warned);
    connect(worker, &RenderWorker::renderFailed, this, &TrackRenderer::renderFailed);
    connect(worker, &RenderWorker::renderCancelled, this, &TrackRenderer::renderCancelled);
    connect(worker, &RenderWorker::samplesClipped, this, &TrackRenderer::samplesClipped);
    connect(worker, &RenderWorker::renderFinished, this, &TrackRenderer::onRenderFinished);
    connect(this, &TrackRenderer::__renderRequested, worker, &RenderWorker::__render, Qt::QueuedConnection);
    thread_.start(QThread::TimeCriticalPriority);
    isRunning_ = true;
    emit __renderRequested();
    emit renderStarted();
}

void TrackRenderer::onRenderFinished()
{
    isRunning_ = false;
    emit renderFinished();
}
