// Link list actions: in progress.
