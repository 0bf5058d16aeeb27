[s]
k=C:\temp
