[s]
k=v

