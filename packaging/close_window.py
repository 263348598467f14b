#!/usr/bin/env python3
"""close_window.py WINDOW-ID...: asks X11 windows to close, as a window manager's close button
does, by sending each the WM_DELETE_WINDOW message. Works without a window manager (Xvfb)."""

import ctypes
import ctypes.util
import sys

CLIENT_MESSAGE = 33
NO_EVENT_MASK = 0
CURRENT_TIME = 0


class ClientMessageEvent(ctypes.Structure):
    _fields_ = [
        ("type", ctypes.c_int),
        ("serial", ctypes.c_ulong),
        ("send_event", ctypes.c_int),
        ("display", ctypes.c_void_p),
        ("window", ctypes.c_ulong),
        ("message_type", ctypes.c_ulong),
        ("format", ctypes.c_int),
        ("data", ctypes.c_long * 5),
    ]


class Event(ctypes.Union):
    # XEvent is a union padded to 24 longs.
    _fields_ = [("xclient", ClientMessageEvent), ("pad", ctypes.c_long * 24)]


def load_xlib():
    xlib = ctypes.cdll.LoadLibrary(ctypes.util.find_library("X11") or "libX11.so.6")
    xlib.XOpenDisplay.restype = ctypes.c_void_p
    xlib.XOpenDisplay.argtypes = [ctypes.c_char_p]
    xlib.XInternAtom.restype = ctypes.c_ulong
    xlib.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    xlib.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long,
                                ctypes.POINTER(Event)]
    xlib.XFlush.argtypes = [ctypes.c_void_p]
    xlib.XCloseDisplay.argtypes = [ctypes.c_void_p]
    return xlib


def main(window_ids):
    if not window_ids:
        sys.exit("usage: close_window.py WINDOW-ID...")
    xlib = load_xlib()
    display = xlib.XOpenDisplay(None)
    if not display:
        sys.exit("close_window.py: cannot open the X display")
    protocols = xlib.XInternAtom(display, b"WM_PROTOCOLS", 0)
    delete = xlib.XInternAtom(display, b"WM_DELETE_WINDOW", 0)
    sent = True
    for window in (int(text, 0) for text in window_ids):
        event = Event()
        event.xclient.type = CLIENT_MESSAGE
        event.xclient.window = window
        event.xclient.message_type = protocols
        event.xclient.format = 32
        event.xclient.data[0] = delete
        event.xclient.data[1] = CURRENT_TIME
        sent = xlib.XSendEvent(display, window, 0, NO_EVENT_MASK, ctypes.byref(event)) != 0 and sent
    xlib.XFlush(display)
    xlib.XCloseDisplay(display)
    return 0 if sent else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
