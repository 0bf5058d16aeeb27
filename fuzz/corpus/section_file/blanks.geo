  [ a]b ]  
	 k = v ; w = x 	
