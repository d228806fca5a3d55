class WrongResult(Exception):
    """A program did not do what it was asked for; its figure would mean nothing."""
