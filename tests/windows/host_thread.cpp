#include "host_thread.h"

namespace conmuta::test {
namespace {

constexpr UINT kRun = WM_APP + 1;
constexpr UINT kDrained = WM_APP + 2;
constexpr wchar_t kClassName[] = L"Conmuta.Tests.Host";

}  // namespace

HostThread::HostThread() {
  WNDCLASSW window_class{};
  window_class.lpfnWndProc = &Procedure;
  window_class.hInstance = GetModuleHandleW(nullptr);
  window_class.lpszClassName = kClassName;
  RegisterClassW(&window_class);  // fails from the second time on
  window_ = CreateWindowExW(0, kClassName, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                            window_class.hInstance, nullptr);
}

HostThread::~HostThread() {
  DestroyWindow(window_);
  CloseHandle(idle_);
  CloseHandle(drained_);
}

void HostThread::Run(const std::function<void()>& body) const {
  DWORD_PTR result = 0;
  if (!SendMessageTimeoutW(window_, kRun, 0, reinterpret_cast<LPARAM>(&body), SMTO_NORMAL,
                           kPatience, &result)) {
    throw Stuck("the host's thread does not answer");
  }
}

void HostThread::Drain() const {
  for (int round = 0; round < 2; ++round) {
    const WPARAM ticket = ++asked_;
    PostMessageW(window_, kDrained, ticket, reinterpret_cast<LPARAM>(this));
    const HANDLE events[] = {idle_, drained_};
    while (answered_ < ticket) {
      const DWORD which = WaitForMultipleObjects(2, events, FALSE, kPatience);
      if (which == WAIT_OBJECT_0) return;
      if (which == WAIT_TIMEOUT) throw Stuck("the host's thread does not empty its queue");
    }
  }
}

void HostThread::Rest() const {
  bool busy = true;
  for (const ULONGLONG end = GetTickCount64() + kPatience; busy; Sleep(2)) {
    if (GetTickCount64() > end) throw Stuck("the host's thread finds no rest");
    Drain();
    Run([&] { busy = HIWORD(GetQueueStatus(QS_ALLINPUT & ~QS_SENDMESSAGE)) != 0; });
  }
}

LRESULT CALLBACK HostThread::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case kRun:
      (*reinterpret_cast<const std::function<void()>*>(lparam))();
      return 0;
    case kDrained: {
      auto* host = reinterpret_cast<HostThread*>(lparam);
      host->answered_ = wparam;
      SetEvent(host->drained_);
      return 0;
    }
    default:
      return DefWindowProcW(window, message, wparam, lparam);
  }
}

}  // namespace conmuta::test
